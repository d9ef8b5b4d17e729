#include "app/page_controls.h"

#include "app/help_texts.h"
#include "controls/control.h"
#include "controls/elided_label.h"
#include "controls/focus_box.h"
#include "controls/grid.h"
#include "controls/long_text_box.h"
#include "controls/tab_button.h"
#include "core/twips.h"
#include "forecast/forecast_schedule.h"
#include "station/update_cycle.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTabTop = Twips(45);     // 3 px
constexpr int kTabHeight = Twips(390); // 26 px
constexpr int kRaisedTabTop = Twips(15);
constexpr int kRaisedTabHeight = Twips(450);
constexpr int kTabLeft = Twips(60);
constexpr std::array kTabWidths{Twips(1905), Twips(1440), Twips(2010)};

constexpr QRect kPage{Twips(60), Twips(495), Twips(5355), Twips(6345)};
constexpr QRect kSeparator{0, Twips(465), Twips(5475), Twips(15)};
constexpr QRect kOutOfSight{-20, -20, 10, 10};

/// Makes a button for each of `choices`, named `name` and its number and captioned as the choice
/// is, and lays them out in `frame`, two to a line.
template <typename Button, typename Choice, size_t count>
void FillInPairs(QGroupBox *frame, const QString &name, std::array<Button *, count> &buttons,
                 const std::array<Choice, count> &choices)
{
    auto *grid = new QGridLayout(frame); // owned by it
    grid->setContentsMargins(kPageMargins);
    grid->setSpacing(kGap);
    for (int i = 0; i < int(count); ++i) {
        auto *button = MakeControl<Button>(frame, name + QString::number(i),
                                           choices[size_t(i)].caption.toString());
        grid->addWidget(button, i / 2, i % 2);
        buttons[size_t(i)] = button;
    }
}

} // namespace

QRect TabGeometry(int index, bool raised)
{
    int left = kTabLeft;
    for (int i = 0; i < index; ++i)
        left += kTabWidths[size_t(i)];
    return {left, raised ? kRaisedTabTop : kTabTop, kTabWidths[size_t(index)],
            raised ? kRaisedTabHeight : kTabHeight};
}

void PageControls::Build(QWidget *window)
{
    BuildTabs(window);
    BuildWeatherPage(frmPage[0]);
    BuildWeatherSettings(frmPage[0]);
    BuildRawFrame(window);
    BuildForecastPage(frmPage[1]);
    BuildSettingsPage(frmPage[2]);
    GiveHelp(*window);
}

void PageControls::BuildTabs(QWidget *window)
{
    constexpr std::array<QStringView, 3> kTabs{u"&Current Weather", u"&Forecast",
                                               u"&Program Settings"};
    constexpr std::array<QStringView, 3> kTitles{u"Current Weather Conditions", u"Forecast",
                                                 u"Program Settings"};

    txtFocus = MakeControl<FocusBox>(window, u"txtFocus"_s);
    txtFocus->setGeometry(kOutOfSight);
    txtFocus->setFocusPolicy(Qt::ClickFocus); // no stop of the Tab key
    txtFocus->setAccessibleName(u"No control"_s);
    for (int i = 0; i < int(cmdPage.size()); ++i) {
        const QString number = QString::number(i);
        auto *tab =
            MakeControl<TabButton>(window, u"cmdPage"_s + number, kTabs[size_t(i)].toString());
        tab->setGeometry(TabGeometry(i, false));
        tab->setAutoDefault(true); // Enter presses it
        cmdPage[size_t(i)] = tab;
        auto *page =
            MakeControl<QGroupBox>(window, u"frmPage"_s + number, kTitles[size_t(i)].toString());
        page->setGeometry(kPage);
        frmPage[size_t(i)] = page;
    }
    linPages = MakeControl<QFrame>(window, u"linPages"_s);
    linPages->setFrameStyle(int(QFrame::HLine) | int(QFrame::Plain));
    linPages->setForegroundRole(QPalette::Mid);
    linPages->setGeometry(kSeparator);
}

void PageControls::BuildForecastPage(QGroupBox *page)
{
    txtZoneCode = MakeControl<QLineEdit>(page, u"txtZoneCode"_s);
    btnSelectNOAAZone = MakeButton(page, u"btnSelectNOAAZone"_s, u"Select Zone Co&de"_s);
    txtStateCode = MakeControl<QLineEdit>(page, u"txtStateCode"_s);
    txtForecast =
        MakeControl<LongTextBox>(page, u"txtForecast"_s, LongTextBox::LayOut::Always, nullptr);
    txtForecast->setAccessibleName(u"Forecast"_s);
    txtForecast->setPlaceholderText(u"No forecast has been received yet."_s);
    lblNextForecastCheck = MakeControl<ElidedLabel>(page, u"lblNextForecastCheck"_s, 1);
    lblNextForecastCheck->setText(u"Loading..."_s);
    lblNextForecastCheck->SetRoomFor(u"Next Update in 00:00:00"_s);
    btnGetForecast = MakeButton(page, u"btnGetForecast"_s, u"&Get Forecast Now"_s);
    lblDisclaimer2 =
        MakeNotice(page, u"lblDisclaimer2"_s,
                   u"This forecast display is intended for configuration verification and "
                   "is not ideal for on-air reading"_s);
    lblForecastCopyright =
        MakeNotice(page, u"lblForecastCopyright"_s,
                   u"Public domain sources at U.S. National Weather Services."_s);
    lblForecastCopyright->hide();

    auto *rows = new QGridLayout;
    rows->setSpacing(kGap);
    rows->addWidget(MakeTitle(page, u"lblZoneCodeTitle"_s, u"&Zone Code:"_s, txtZoneCode), 0, 0);
    rows->addWidget(txtZoneCode, 0, 1);
    rows->addWidget(btnSelectNOAAZone, 0, 2);
    rows->addWidget(MakeTitle(page, u"lblStateCodeTitle"_s, u"&State:"_s, txtStateCode), 1, 0);
    rows->addWidget(txtStateCode, 1, 1);
    rows->addWidget(txtForecast, 2, 0, 1, 3);
    rows->addWidget(lblNextForecastCheck, 3, 0, 1, 2);
    rows->addWidget(btnGetForecast, 3, 2);
    auto *layout = new QVBoxLayout(page); // owned by the page
    layout->setContentsMargins(kPageMargins);
    layout->setSpacing(kBlockGap);
    layout->addLayout(rows);
    layout->addLayout(InOnePlace(lblDisclaimer2, lblForecastCopyright));
}

void PageControls::BuildSettingsPage(QGroupBox *page)
{
    txtHTTPPort = MakeControl<QLineEdit>(page, u"txtHTTPPort"_s);
    txtHTTPPort->setText(u"80"_s);
    auto *port = new QHBoxLayout;
    port->setSpacing(kGap);
    port->addWidget(MakeTitle(page, u"lblHTTPPortTitle"_s, u"&HTTP Request Port"_s, txtHTTPPort));
    port->addWidget(txtHTTPPort);
    port->addStretch();
    QGroupBox *times = BuildForecastTimes(page);
    QGroupBox *intervals = BuildCheckIntervals(page);
    chkMinimizeOnStartup = MakeControl<QCheckBox>(page, u"chkMinimizeOnStartup"_s,
                                                  u"&Minimize Tavrin Weather Utility On Startup"_s);
    lblFolderProblem = MakeControl<QLabel>(page, u"lblFolderProblem"_s);
    lblFolderProblem->setTextFormat(Qt::PlainText);
    lblFolderProblem->setWordWrap(true);
    lblFolderProblem->hide();
    lblAppVersion = MakeControl<QLabel>(page, u"lblAppVersion"_s);
    lblAppVersion->setTextFormat(Qt::PlainText);
    lblAppVersion->setWordWrap(true);

    auto *layout = new QVBoxLayout(page); // owned by the page
    layout->setContentsMargins(kPageMargins);
    layout->setSpacing(kBlockGap);
    layout->addLayout(port);
    layout->addWidget(times);
    layout->addWidget(intervals);
    layout->addWidget(chkMinimizeOnStartup);
    layout->addWidget(lblFolderProblem);
    layout->addStretch();
    layout->addWidget(lblAppVersion);
}

QGroupBox *PageControls::BuildForecastTimes(QGroupBox *page)
{
    auto *frame = MakeControl<QGroupBox>(page, u"frmForecastTimes"_s, u"Get Forecast Info At..."_s);
    FillInPairs(frame, u"chkForecastTime"_s, chkForecastTime, kForecastSlots);
    return frame;
}

QGroupBox *PageControls::BuildCheckIntervals(QGroupBox *page)
{
    auto *frame =
        MakeControl<QGroupBox>(page, u"frmCheckInterval"_s, u"Get Current Weather Info Every..."_s);
    FillInPairs(frame, u"optCheckInterval"_s, optCheckInterval, kCheckIntervals);
    optCheckInterval[0]->setChecked(true);
    return frame;
}
