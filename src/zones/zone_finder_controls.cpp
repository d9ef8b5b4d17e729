#include "zones/zone_finder_controls.h"

#include "controls/control.h"
#include "controls/elided_label.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyledItemDelegate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kInset = Twips(120); // from the edges of the window
constexpr int kGap = 6;
constexpr int kStatesShown = 20;
constexpr qsizetype kLongestShown = 1000; // several times the longest real entry

/// Paints entries in one line, whatever a file put into them, and of a file that is no zone's only
/// as much as can be laid out in no time.
class EntryPainter final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant &value,
                                      const QLocale & /*locale*/) const override
    {
        return value.toString().left(kLongestShown).remove(u'\r');
    }
};

/// A button that Enter presses when it has the focus, as in any dialog.
QPushButton *MakeButton(QWidget *parent, const QString &name, const QString &caption)
{
    auto *button = MakeControl<QPushButton>(parent, name, caption);
    button->setAutoDefault(true);
    return button;
}

} // namespace

void ZoneFinderControls::Build(QWidget *window)
{
    BuildState(window);
    BuildList(window);
    BuildSearch(window);
    btnSelect = MakeButton(window, u"btnSelect"_s, u"S&elect"_s);
    btnSelect->setEnabled(false); // until there is something to select
    btnCancel = MakeButton(window, u"btnCancel"_s, u"&Cancel"_s);
    lstZoneFiles = MakeControl<QListWidget>(window, u"lstZoneFiles"_s);
    lstZoneFiles->hide();
    txtZonesTest = MakeControl<QPlainTextEdit>(window, u"txtZonesTest"_s);
    txtZonesTest->hide();
    SetTabOrder();
}

void ZoneFinderControls::BuildState(QWidget *window)
{
    frmState = MakeControl<QWidget>(window, u"frmState"_s);
    auto *stateTitle = MakeControl<QLabel>(frmState, u"Label1"_s, u"Select &State to Search"_s);
    cboState = MakeControl<QComboBox>(frmState, u"cboState"_s);
    cboState->setMaxVisibleItems(kStatesShown);
    cboState->setAccessibleName(u"Select State to Search"_s);
    stateTitle->setBuddy(cboState);
    btnNOAAZonesGetList = MakeButton(frmState, u"btnNOAAZonesGetList"_s, u"&Get Zone Code List"_s);
    auto *listTitle =
        MakeControl<QLabel>(frmState, u"Label2"_s, u"&Available Forecast Station Zone Codes"_s);
    lblProgress = MakeControl<QLabel>(frmState, u"lblProgress"_s);
    lblProgress->setTextFormat(Qt::PlainText);
    lblProgress->hide();
    lstZoneCodes = MakeControl<QListWidget>(window, u"lstZoneCodes"_s);
    listTitle->setBuddy(lstZoneCodes);

    auto *state = new QHBoxLayout;
    state->addWidget(stateTitle);
    state->addWidget(cboState);
    state->addWidget(btnNOAAZonesGetList);
    state->addStretch();
    auto *titles = new QHBoxLayout;
    titles->addWidget(listTitle);
    titles->addStretch();
    titles->addWidget(lblProgress);
    auto *layout = new QVBoxLayout(frmState); // owned by it
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    layout->addLayout(state);
    layout->addLayout(titles);
}

void ZoneFinderControls::BuildList(QWidget *window) const
{
    QFont font = window->font();
    font.setPointSizeF(font.pointSizeF() + 1); // place names are what is read here
    lstZoneCodes->setFont(font);
    lstZoneCodes->setItemDelegate(new EntryPainter(lstZoneCodes)); // owned by the list
    lstZoneCodes->setTextElideMode(Qt::ElideNone);                 // long entries are scrolled
    lstZoneCodes->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    lstZoneCodes->setTabKeyNavigation(false);
    lstZoneCodes->setAccessibleName(u"Available Forecast Station Zone Codes"_s);
}

void ZoneFinderControls::BuildSearch(QWidget *window)
{
    frmSearch = MakeControl<QWidget>(window, u"frmSearch"_s);
    auto *searchTitle =
        MakeControl<QLabel>(frmSearch, u"Label3"_s, u"Search Zone Code List for City/&Location"_s);
    txtSearch = MakeControl<QLineEdit>(frmSearch, u"txtSearch"_s);
    txtSearch->setAccessibleName(u"Search Zone Code List for City/Location"_s);
    searchTitle->setBuddy(txtSearch);
    btnSearch = MakeButton(frmSearch, u"btnSearch"_s, u"&Find"_s);
    auto *note = MakeControl<QLabel>(frmSearch, u"Label4"_s,
                                     u"NOTE: Search results may include neighboring state "
                                     "locations to the selected state."_s);
    note->setWordWrap(true);
    lblZoneFiles = MakeControl<ElidedLabel>(frmSearch, u"lblZoneFiles"_s, 1);

    auto *layout = new QGridLayout(frmSearch); // owned by it
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    layout->addWidget(searchTitle, 0, 0);
    layout->addWidget(txtSearch, 0, 1);
    layout->addWidget(btnSearch, 0, 2);
    layout->addWidget(note, 1, 0, 1, 3);
    layout->addWidget(lblZoneFiles, 2, 0, 1, 3);
    layout->setColumnStretch(1, 1);
}

void ZoneFinderControls::SetTabOrder() const
{
    QWidget *const stops[] = {cboState,  btnNOAAZonesGetList, lstZoneCodes, txtSearch,
                              btnSearch, btnSelect,           btnCancel};
    for (const auto *stop = std::begin(stops); stop + 1 != std::end(stops); ++stop)
        QWidget::setTabOrder(stop[0], stop[1]);
}

void ZoneFinderControls::Place(const QWidget &window) const
{
    const int width = window.width() - 2 * kInset;
    const QSize button = btnSelect->sizeHint().expandedTo(btnCancel->sizeHint());
    const int buttonTop = window.height() - kInset - button.height();
    const int searchHeight = frmSearch->heightForWidth(width); // the note wraps
    const int searchTop = buttonTop - kGap - searchHeight;
    const int stateHeight = frmState->sizeHint().height();
    const int listTop = kInset + stateHeight + kGap;

    frmState->setGeometry(kInset, kInset, width, stateHeight);
    lstZoneCodes->setGeometry(kInset, listTop, width, std::max(0, searchTop - kGap - listTop));
    frmSearch->setGeometry(kInset, searchTop, width, searchHeight);
    btnSelect->setGeometry({{window.width() - kInset - button.width(), buttonTop}, button});
    btnCancel->setGeometry({{btnSelect->x() - kGap - button.width(), buttonTop}, button});
}
