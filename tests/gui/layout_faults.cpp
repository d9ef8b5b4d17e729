#include "gui/layout_faults.h"

#include "controls/choice_list.h"
#include "controls/covering_frame.h"
#include "controls/elided_label.h"
#include "controls/tab_button.h"
#include "controls/value_box.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMessageBox>

namespace {

constexpr double kNarrowestCaption = 0.8; // of a tab; narrower is hard to read
constexpr int kTabInset = 5;
constexpr int kTextMargin = 4; // of a line edit, its frame included, on one side

const QString kFocusBox = "txtFocus"; // lies outside the window

QString NameOf(const QWidget *control)
{
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    return control->objectName().isEmpty() && button != nullptr ? button->text()
                                                                : control->objectName();
}

/// Whether the control is, or is in, a part that the toolkit put into one of its controls.
bool IsInner(const QWidget &control)
{
    for (const QWidget *one = &control; one != nullptr && !one->isWindow();
         one = one->parentWidget()) {
        const QWidget *parent = one->parentWidget();
        if (one->objectName().startsWith("qt_")
            || qobject_cast<const QAbstractScrollArea *>(parent) != nullptr)
            return true;
    }
    return control.objectName().isEmpty();
}

/// Whether a frame in front covers the control.
bool IsCovered(const QWidget *control)
{
    for (const auto *front : control->window()->findChildren<CoveringFrame *>()) {
        if (front->isVisible() && front->parentWidget()->isAncestorOf(control)
            && !front->isAncestorOf(control) && front != control)
            return true;
    }
    return false;
}

QRect InWindow(const QWidget *control)
{
    return {control->mapTo(control->window(), QPoint(0, 0)), control->size()};
}

bool Fits(const QSize &needed, const QSize &room)
{
    return needed.width() <= room.width() && needed.height() <= room.height();
}

QString TextOf(const QWidget *control)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(control))
        return button->text();
    if (const auto *frame = qobject_cast<const QGroupBox *>(control))
        return frame->title();
    const auto *label = qobject_cast<const QLabel *>(control);
    return label != nullptr && label->buddy() != nullptr ? label->text() : QString();
}

// --- what is cut off

bool IsLabelCutOff(const QLabel *label)
{
    if (const auto *elided = qobject_cast<const ElidedLabel *>(label)) {
        const bool isWhole = elided->Lines().join(QString()) == label->text().simplified();
        const bool isCountdown = label->objectName().startsWith("lblNext");
        const bool isExplained = elided->ToolTipText().contains(label->text());
        return !Fits(label->minimumSizeHint(), label->size())
            || !(isWhole || (isExplained && !isCountdown));
    }
    if (label->wordWrap())
        return label->height() < label->heightForWidth(label->width());
    return !Fits(label->sizeHint(), label->size());
}

bool IsTabCutOff(const TabButton *tab)
{
    const QSize caption = tab->fontMetrics().size(Qt::TextShowMnemonic, tab->text());
    return caption.height() > tab->height()
        || caption.width() * kNarrowestCaption > tab->width() - 2 * kTabInset;
}

bool IsBoxCutOff(const QLineEdit *box)
{
    if (box->height() < box->fontMetrics().height() + kTextMargin)
        return true;
    if (const auto *value = qobject_cast<const ValueBox *>(box))
        return !(value->IsShownWhole() || value->ToolTipText().contains(value->Value()));
    return box->fontMetrics().horizontalAdvance(box->text()) > box->width() - 2 * kTextMargin;
}

bool IsCutOff(const QWidget *control)
{
    if (const auto *label = qobject_cast<const QLabel *>(control))
        return IsLabelCutOff(label);
    if (const auto *tab = qobject_cast<const TabButton *>(control))
        return IsTabCutOff(tab);
    if (const auto *button = qobject_cast<const QAbstractButton *>(control))
        return !Fits(button->sizeHint(), button->size());
    if (const auto *box = qobject_cast<const QLineEdit *>(control))
        return IsBoxCutOff(box);
    if (const auto *list = qobject_cast<const ChoiceList *>(control); list != nullptr) {
        if (!list->IsShownWhole() && !list->ToolTipText().contains(list->currentText()))
            return true;
    }
    return !Fits(control->minimumSizeHint(), control->size());
}

QStringList CutOff(const QList<QWidget *> &seen)
{
    QStringList faults;
    for (const QWidget *control : seen) {
        if (IsCutOff(control))
            faults.append(NameOf(control) + " is cut off");
    }
    return faults;
}

// --- places

QStringList Misplaced(const QList<QWidget *> &seen)
{
    QStringList faults;
    for (qsizetype i = 0; i < seen.size(); ++i) {
        const QWidget *control = seen[i];
        if (!control->parentWidget()->rect().contains(control->geometry()))
            faults.append(NameOf(control) + " leaves its frame");
        for (const QWidget *other : seen.sliced(i + 1)) {
            if (control->parentWidget() == other->parentWidget()
                && control->geometry().intersects(other->geometry()))
                faults.append(NameOf(control) + " overlaps " + NameOf(other));
        }
    }
    return faults;
}

// --- keyboard and assistive tools

QStringList Unnamed(const QList<QWidget *> &seen)
{
    QStringList faults;
    for (QWidget *control : seen) {
        if (control->focusPolicy() == Qt::NoFocus)
            continue;
        const QAccessibleInterface *access = QAccessible::queryAccessibleInterface(control);
        const QString name = access == nullptr ? QString() : access->text(QAccessible::Name);
        // Without a name the toolkit falls back on the title of the frame around it.
        const auto *frame = qobject_cast<const QGroupBox *>(control->parentWidget());
        const bool isFallback =
            frame != nullptr && name == frame->title() && control->accessibleName().isEmpty();
        if (name.trimmed().isEmpty() || isFallback)
            faults.append(NameOf(control) + " has no accessible name");
    }
    return faults;
}

QStringList Unexplained(const QList<QWidget *> &seen)
{
    QStringList faults;
    for (const QWidget *control : seen) {
        // Tabs and the buttons of a question say it all themselves.
        const bool isPlain = qobject_cast<const TabButton *>(control) != nullptr
                          || qobject_cast<QMessageBox *>(control->window()) != nullptr
                          || control->objectName() == kFocusBox;
        if (control->focusPolicy() != Qt::NoFocus && !isPlain && control->toolTip().isEmpty())
            faults.append(NameOf(control) + " does not say what it is for");
    }
    return faults;
}

QStringList Clashing(const QList<QWidget *> &seen)
{
    QMap<QString, QString> owners;
    QStringList faults;
    for (const QWidget *control : seen) {
        const QString key = QKeySequence::mnemonic(TextOf(control)).toString();
        if (key.isEmpty())
            continue;
        if (owners.contains(key))
            faults.append(key + " is " + owners[key] + " and " + NameOf(control));
        owners[key] = NameOf(control);
    }
    return faults;
}

/// Whether `first` is read before `second`: line by line, left to right.
bool IsReadAhead(const QRect &first, const QRect &second)
{
    return first.bottom() < second.top()
        || (first.top() <= second.bottom() && first.left() < second.left());
}

QStringList OutOfOrder(const QList<QWidget *> &stops)
{
    QStringList faults;
    for (qsizetype i = 1; i < stops.size(); ++i) {
        if (!IsReadAhead(InWindow(stops[i - 1]), InWindow(stops[i])))
            faults.append(NameOf(stops[i - 1]) + " comes ahead of " + NameOf(stops[i]));
    }
    return faults;
}

/// Faults of the list that a drop-down list opens.
QStringList OpenedListFaults(const QWidget &popup)
{
    const auto *list = popup.findChild<QAbstractItemView *>();
    if (list == nullptr)
        return {"no list"};
    const bool isWide = list->viewport()->width() >= list->sizeHintForColumn(0);
    return isWide ? QStringList() : QStringList{"entries are cut off"};
}

} // namespace

QList<QWidget *> SeenControls(const QWidget &window)
{
    QList<QWidget *> seen;
    for (QWidget *control : window.findChildren<QWidget *>()) {
        const bool isButton = qobject_cast<QAbstractButton *>(control) != nullptr;
        const bool isOurs = !IsInner(*control) || isButton;
        if (isOurs && control->isVisible() && control->window() == &window && !IsCovered(control)
            && control->objectName() != kFocusBox)
            seen.append(control);
    }
    return seen;
}

QList<QWidget *> TabStops(const QWidget &window)
{
    const QList<QWidget *> seen = SeenControls(window);
    QList<QWidget *> stops;
    for (QWidget *control = window.nextInFocusChain(); control != &window;
         control = control->nextInFocusChain()) {
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->isEnabled()
            && seen.contains(control))
            stops.append(control);
    }
    return stops;
}

QStringList LayoutFaults(const QWidget &window)
{
    if (window.windowType() == Qt::Popup)
        return OpenedListFaults(window);
    const QList<QWidget *> seen = SeenControls(window);
    if (seen.isEmpty())
        return {"nothing is to be seen"};
    QList<QWidget *> focusable = seen;
    focusable.append(window.findChildren<QWidget *>(kFocusBox)); // unseen, but announced
    return CutOff(seen) + Misplaced(seen) + Unnamed(focusable) + Unexplained(focusable)
         + Clashing(seen) + OutOfOrder(TabStops(window));
}
