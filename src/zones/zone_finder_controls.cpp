#include "zones/zone_finder_controls.h"

#include "controls/control.h"
#include "controls/elided_label.h"
#include "controls/grid.h"
#include "controls/tool_tip.h"
#include "core/twips.h"
#include "zones/zone_list_box.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kInset = Twips(120); // from the edges of the window
constexpr int kStatesShown = 20;

} // namespace

void ZoneFinderControls::Build(QWidget *window)
{
    BuildState(window);
    BuildSearch(window);
    lblZoneFiles = MakeControl<ElidedLabel>(window, u"lblZoneFiles"_s, 1);
    lblZoneFiles->SetElideMode(Qt::ElideMiddle); // an address is recognised by its end
    btnSelect = MakeButton(window, u"btnSelect"_s, u"S&elect"_s);
    btnSelect->setEnabled(false); // until there is something to select
    btnCancel = MakeButton(window, u"btnCancel"_s, u"&Cancel"_s);
    lstZoneFiles = MakeControl<QListWidget>(window, u"lstZoneFiles"_s);
    lstZoneFiles->hide();
    txtZonesTest = MakeControl<QPlainTextEdit>(window, u"txtZonesTest"_s);
    txtZonesTest->hide();
    GiveHelp();
    SetTabOrder();
}

void ZoneFinderControls::BuildState(QWidget *window)
{
    frmState = MakeControl<QWidget>(window, u"frmState"_s);
    cboState = MakeControl<QComboBox>(frmState, u"cboState"_s);
    cboState->setMaxVisibleItems(kStatesShown);
    cboState->setAccessibleName(u"Select State to Search"_s);
    btnNOAAZonesGetList = MakeButton(frmState, u"btnNOAAZonesGetList"_s, u"&Get Zone Code List"_s);
    lblProgress = MakeControl<QLabel>(frmState, u"lblProgress"_s);
    lblProgress->setTextFormat(Qt::PlainText);
    lblProgress->hide();
    lstZoneCodes = MakeControl<ZoneListBox>(window, u"lstZoneCodes"_s);
    lstZoneCodes->setAccessibleName(u"Available Forecast Station Zone Codes"_s);

    auto *state = new QHBoxLayout;
    state->setSpacing(kGap);
    state->addWidget(MakeTitle(frmState, u"Label1"_s, u"Select &State to Search"_s, cboState));
    state->addWidget(cboState);
    state->addWidget(btnNOAAZonesGetList);
    state->addStretch();
    auto *titles = new QHBoxLayout;
    titles->addWidget(MakeTitle(frmState, u"Label2"_s, u"&Available Forecast Station Zone Codes"_s,
                                lstZoneCodes));
    titles->addStretch();
    titles->addWidget(lblProgress);
    auto *layout = new QVBoxLayout(frmState); // owned by it
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kBlockGap);
    layout->addLayout(state);
    layout->addLayout(titles);
}

void ZoneFinderControls::BuildSearch(QWidget *window)
{
    frmSearch = MakeControl<QWidget>(window, u"frmSearch"_s);
    txtSearch = MakeControl<QLineEdit>(frmSearch, u"txtSearch"_s);
    txtSearch->setAccessibleName(u"Search Zone Code List for City/Location"_s);
    btnSearch = MakeButton(frmSearch, u"btnSearch"_s, u"&Find"_s);
    auto *note = MakeControl<QLabel>(frmSearch, u"Label4"_s,
                                     u"NOTE: Search results may include neighboring state "
                                     "locations to the selected state."_s);
    note->setWordWrap(true);

    auto *layout = new QGridLayout(frmSearch); // owned by it
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    layout->addWidget(
        MakeTitle(frmSearch, u"Label3"_s, u"Search Zone Code List for City/&Location"_s, txtSearch),
        0, 0);
    layout->addWidget(txtSearch, 0, 1);
    layout->addWidget(btnSearch, 0, 2);
    layout->addWidget(note, 1, 0, 1, 3);
    layout->setColumnStretch(1, 1);
}

void ZoneFinderControls::GiveHelp() const
{
    SetHelp(cboState, u"The state whose forecast zones are listed."_s);
    SetHelp(btnNOAAZonesGetList,
            u"Fetches the zones of the state from the U.S. National Weather Service."_s);
    SetHelp(lstZoneCodes, u"The code of each zone and the places in it."_s);
    SetHelp(lblProgress, u"How much of the zones has been read, in percent."_s);
    SetHelp(txtSearch, u"Part of a place's name, in capitals or not."_s);
    SetHelp(btnSearch, u"Goes on to the next zone with this text."_s);
    SetHelp(btnSelect, u"Takes the zone that is marked in the list."_s);
    SetHelp(btnCancel, u"Closes the window; takes nothing."_s);
}

void ZoneFinderControls::SetTabOrder() const
{
    QWidget *const stops[] = {cboState,  btnNOAAZonesGetList, lstZoneCodes, txtSearch,
                              btnSearch, btnCancel,           btnSelect};
    for (const auto *stop = std::begin(stops); stop + 1 != std::end(stops); ++stop)
        QWidget::setTabOrder(stop[0], stop[1]);
}

void ZoneFinderControls::Place(const QWidget &window) const
{
    const int width = window.width() - 2 * kInset;
    const QSize button = btnSelect->sizeHint().expandedTo(btnCancel->sizeHint());
    const int buttonTop = window.height() - kInset - button.height();
    const int searchHeight = frmSearch->heightForWidth(width); // the note wraps
    const int searchTop = buttonTop - kBlockGap - searchHeight;
    const int stateHeight = frmState->sizeHint().height();
    const int listTop = kInset + stateHeight + kTitleGap;

    frmState->setGeometry(kInset, kInset, width, stateHeight);
    lstZoneCodes->setGeometry(kInset, listTop, width, std::max(0, searchTop - kBlockGap - listTop));
    frmSearch->setGeometry(kInset, searchTop, width, searchHeight);
    btnSelect->setGeometry({{window.width() - kInset - button.width(), buttonTop}, button});
    btnCancel->setGeometry({{btnSelect->x() - kGap - button.width(), buttonTop}, button});
    lblZoneFiles->setGeometry(kInset, buttonTop, btnCancel->x() - kBlockGap - kInset,
                              button.height());
}
