#include "controls/choice_list.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int kListTextMargin = 2; // as the styles have it
constexpr int kMinListWidth = 80;  // narrower is no use to anyone
constexpr int kMaxWidth = 600;     // of the opened list: it has to fit on a screen

} // namespace

ChoiceList::ChoiceList(QWidget *parent) : QComboBox(parent)
{
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        m_changeReported = true;
        Q_EMIT Click();
    });
    connect(this, &QComboBox::activated, this, [this] {
        if (!std::exchange(m_changeReported, false))
            Q_EMIT Click();
    });
}

// Not before the list is opened: until somebody asks for it, there is none.
void ChoiceList::WatchScrolling()
{
    if (std::exchange(m_watchesScrolling, true))
        return;
    connect(view()->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (view()->isVisible())
            Q_EMIT Scroll();
    });
}

// What the user does begins in one of these two; a change made by code before does not count.

void ChoiceList::showPopup()
{
    m_changeReported = false;
    WatchScrolling();
    const int titles =
        view()->sizeHintForColumn(0) + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view()->setMinimumWidth(std::min(titles, kMaxWidth));
    QComboBox::showPopup();
}

void ChoiceList::keyPressEvent(QKeyEvent *event)
{
    m_changeReported = false;
    QComboBox::keyPressEvent(event);
}

void ChoiceList::wheelEvent(QWheelEvent *event)
{
    // Every choice has consequences, so a wheel turned in passing must not make one.
    event->ignore();
}

QSize ChoiceList::minimumSizeHint() const
{
    return {kMinListWidth, QComboBox::minimumSizeHint().height()};
}

QString ChoiceList::ElidedTitle() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width() - kListTextMargin);
}

bool ChoiceList::IsShownWhole() const
{
    return ElidedTitle() == currentText();
}

QString ChoiceList::ToolTipText() const
{
    return IsShownWhole() ? toolTip() : currentText() + u'\n' + toolTip();
}

void ChoiceList::paintEvent(QPaintEvent *event)
{
    if (currentIndex() < 0) { // the placeholder
        QComboBox::paintEvent(event);
        return;
    }
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = ElidedTitle();
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
