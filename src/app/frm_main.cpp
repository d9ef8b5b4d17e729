#include "app/frm_main.h"

#include "app/window_texts.h"
#include "controls/choice_list.h"
#include "controls/control.h"
#include "controls/covered_mnemonics.h"
#include "controls/covering_frame.h"
#include "controls/elided_label.h"
#include "controls/long_text_box.h"
#include "controls/tab_button.h"
#include "core/trace.h"
#include "station/update_cycle.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kWeatherCheckInterval = 1000ms;
constexpr auto kDisclaimerInterval = 5000ms;
constexpr auto kPatienceAtEnd = 2000ms; // for files that are being stored

} // namespace

frmMain::frmMain(Station &station, WindowMemory &memory, const Platform &platform,
                 YesNoQuestion askYesNo)
    : WindowInTray(memory.tray, station.Files().SessionId, memory.GraphicsFormLoaded,
                   platform.panelIcon)
    , m_station(station)
    , m_memory(memory)
    , m_platform(platform)
    , m_askYesNo(std::move(askYesNo))
{
    setObjectName(u"frmMain"_s);
    setWindowTitle(WindowCaption({}));
    setFixedSize(kClientSize);
    Build(this);
    frmWeatherRaw->setGeometry(rect());
    CountdownsChanged();
    ConnectControls();
    ConnectWeatherControls();
    ConnectSettings();
    new CoveredMnemonics(*this, [this] { return FrameInFront(); }); // owned by the window
    m_station.SetView(this);
    tmrMain.start(Station::kPollInterval);
    tmrDisclamer.start(kDisclaimerInterval);
}

frmMain::~frmMain()
{
    m_station.SetView(nullptr);
}

std::optional<QString> frmMain::Form_Load(const CommandLine &command)
{
    Trace(u"Form_Load Point 1");
    lblAppVersion->setText(VersionText(Year()));
    for (ElidedLabel *title : lblLocationTitle)
        title->clear();
    TraceCommand(command);
    txtWeatherInfo->SetText({});
    Trace(u"Form_Load Point 2");
    LoadProfiles();
    Trace(u"Form_Load Point 4.5");
    if (auto problem = m_station.LoadSettings())
        return problem;
    ShowSettings();
    Trace(u"Form_Load Point 5");
    FillProfileList();
    Trace(u"Form_Load Point 6");
    ShowWeatherProfile();
    Trace(u"Form_Load Point 7");
    SelectCurrentProfile();
    Trace(u"Form_Load Point 8");
    m_station.LoadExtremes();
    Trace(u"Form_Load Point 9");
    Trace(u"Form_Load Point 10");
    tmrWeatherCheck.start(kWeatherCheckInterval);
    LoadTray();
    const Settings &settings = m_station.CurrentSettings();
    chkMinimizeOnStartup->setChecked(settings.MinimizeOnStartupEnabled);
    cmdPage_Click(0);
    // On its very first run the window is always shown, or nobody would know where it is.
    if (!settings.IsFirstRun && settings.MinimizeOnStartupEnabled)
        StartMinimized();
    else
        show();
    m_station.Start();
    return std::nullopt;
}

void frmMain::TraceCommand(const CommandLine &command)
{
    TraceSession(command);
    setWindowTitle(WindowCaption(m_station.Files().SessionId));
    lblFolderProblem->setText(m_memory.folderProblem);
    lblFolderProblem->setVisible(!m_memory.folderProblem.isEmpty());
}

void frmMain::LoadProfiles()
{
    Trace(u"Form_Load Point 3");
    m_station.LoadProfiles();
    Trace(u"Form_Load Point 4");
    if (const std::optional<QString> &credit = m_station.ForecastCredit())
        lblForecastCopyright->setText(*credit);
}

void frmMain::ShowSettings()
{
    const Settings settings = m_station.CurrentSettings(); // as loaded: each control passes its own
    txtZoneCode->setText(settings.ForecastZone);
    txtStateCode->setText(settings.ForecastState);
    for (size_t i = 0; i < chkForecastTime.size(); ++i)
        chkForecastTime[i]->setChecked(settings.ForecastSched[i]);
    txtHTTPPort->setText(settings.HTTPPort);
    for (size_t i = 0; i < kCheckIntervals.size(); ++i) {
        if (settings.CheckInterval && *settings.CheckInterval * 60 == kCheckIntervals[i].seconds)
            optCheckInterval[i]->setChecked(true);
    }
}

void frmMain::SelectCurrentProfile()
{
    TraceProfileList();
    cboSelectedProfile->setCurrentIndex(m_station.Profiles().currentWeatherProfile);
    TraceProfileList();
}

void frmMain::TraceProfileList() const
{
    Trace(u"Me.cboSelectedProfile.ListIndex = ", cboSelectedProfile->currentIndex(),
          u"   currentWeatherProfile = ", m_station.Profiles().currentWeatherProfile,
          u"  me.cboSelectedProfile.ListCount = ", cboSelectedProfile->count());
}

void frmMain::ConnectControls()
{
    for (int i = 0; i < int(cmdPage.size()); ++i)
        connect(cmdPage[size_t(i)], &QPushButton::clicked, this, [this, i] { cmdPage_Click(i); });
    connect(txtFocus, &QLineEdit::textChanged, this, &frmMain::txtFocus_Change);
    m_focusWatches = {WhenFocusIsLost(txtFocus, [this] { txtFocus_LostFocus(); }),
                      WhenFocusIsLost(txtHTTPPort, [this] { txtHTTPPort_LostFocus(); })};
    connect(chkMinimizeOnStartup, &QCheckBox::toggled, this, &frmMain::chkMinimizeOnStartup_Click);

    connect(&tmrMain, &QTimer::timeout, this, &frmMain::tmrMain_Timer);
    connect(&tmrWeatherCheck, &QTimer::timeout, this, &frmMain::tmrWeatherCheck_Timer);
    connect(&tmrDisclamer, &QTimer::timeout, this, &frmMain::tmrDisclamer_Timer);
}

void frmMain::ConnectWeatherControls()
{
    connect(btnGetWeather, &QPushButton::clicked, this, &frmMain::btnGetWeather_Click);
    connect(btnGetForecast, &QPushButton::clicked, this, &frmMain::btnGetForecast_Click);
    connect(btnSelectNOAAZone, &QPushButton::clicked, this, &frmMain::btnSelectNOAAZone_Click);
    connect(btnShowRaw, &QPushButton::clicked, this, &frmMain::btnShowRaw_Click);
    connect(btnWeatherSettings, &QPushButton::clicked, this, &frmMain::btnWeatherSettings_Click);
    for (QPushButton *done : btnWeatherDone)
        connect(done, &QPushButton::clicked, this, &frmMain::btnWeatherDone_Click);
    connect(cboSelectedProfile, &ChoiceList::Click, this, &frmMain::cboSelectedProfile_Click);
    connect(cboSelectedProfile, &ChoiceList::Scroll, this, &frmMain::cboSelectedProfile_Scroll);
}

void frmMain::ConnectSettings()
{
    for (QLineEdit *code : {txtZoneCode, txtStateCode})
        connect(code, &QLineEdit::textChanged, this, &frmMain::PassZone);
    connect(txtHTTPPort, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_station.Change([&](Settings &settings) { settings.HTTPPort = text; });
    });
    for (size_t i = 0; i < chkForecastTime.size(); ++i) {
        connect(chkForecastTime[i], &QCheckBox::toggled, this, [this, i](bool checked) {
            m_station.Change([&](Settings &settings) { settings.ForecastSched[i] = checked; });
        });
    }
    for (QRadioButton *button : optCheckInterval)
        connect(button, &QRadioButton::toggled, this, &frmMain::PassCheckInterval);
    for (size_t i = 0; i < txtLocation.size(); ++i) {
        connect(txtLocation[i], &QLineEdit::textEdited, this, [this, i](const QString &text) {
            m_station.EditLocation(i, text, Editor::Person);
        });
        connect(txtLocation[i], &QLineEdit::textChanged, this, [this, i](const QString &text) {
            m_station.EditLocation(i, text, Editor::Program);
        });
        connect(txtLocation[i], &QLineEdit::returnPressed, this,
                [this] { m_station.LocationsDone(); });
    }
}

void frmMain::PassCheckInterval()
{
    std::array<bool, 4> selected{};
    for (size_t i = 0; i < selected.size(); ++i)
        selected[i] = optCheckInterval[i]->isChecked();
    m_station.SetCheckInterval(CheckIntervalSeconds(selected));
}

void frmMain::Form_QueryUnload(bool &cancel, UnloadMode unloadMode)
{
    Trace(u"unloadmode = ", int(unloadMode));
    if (unloadMode == UnloadMode::TitleBar) {
        cancel = !m_askYesNo(this, u"Confirm Exit"_s,
                             u"Are you sure you want to exit the Tavrin Weather Utility?"_s);
    }
}

void frmMain::Form_Unload()
{
    if (!m_station.IsRunning())
        return;
    for (QTimer *timer : {&tmrMain, &tmrWeatherCheck, &tmrDisclamer})
        timer->stop(); // no more requests, no more files
    m_station.End(kPatienceAtEnd);
    UnloadTray();
    UnloadZoneFinder();
}

void frmMain::SaveSettings()
{
    if (m_station.IsRunning()) // else not loaded yet, or already saved for good
        m_station.SaveSettings();
}

bool frmMain::Unload(UnloadMode unloadMode)
{
    if (!m_station.IsRunning())
        return true;
    bool cancel = false;
    Form_QueryUnload(cancel, unloadMode);
    if (cancel)
        return false;
    Form_Unload();
    Q_EMIT Unloaded();
    return true;
}

void frmMain::closeEvent(QCloseEvent *event)
{
    event->setAccepted(Unload(event->spontaneous() ? UnloadMode::TitleBar : UnloadMode::Code));
}

void frmMain::cmdPage_Click(int Index)
{
    for (int i = 0; i < int(cmdPage.size()); ++i) {
        TabButton *button = cmdPage[size_t(i)];
        button->setGeometry(TabGeometry(i, i == Index));
        SetBold(button, i == Index);
        button->raise();
    }
    for (QGroupBox *page : frmPage)
        page->raise();
    cmdPage[size_t(Index)]->raise();
    linPages->raise();
    frmWeatherRaw->raise(); // an open one covers tabs and pages alike
    for (QGroupBox *page : frmPage)
        page->hide();
    frmPage[size_t(Index)]->show();
    for (int i = 0; i < int(cmdPage.size()); ++i)
        cmdPage[size_t(i)]->setEnabled(i != Index);
    txtFocus->setFocus();
}

void frmMain::txtFocus_Change()
{
    txtFocus->clear();
}

void frmMain::txtFocus_LostFocus()
{
    txtFocus->clear();
}

void frmMain::txtHTTPPort_LostFocus()
{
    txtHTTPPort->setText(HttpPortText(txtHTTPPort->text()));
}

void frmMain::chkMinimizeOnStartup_Click()
{
    m_station.Change([this](Settings &settings) {
        settings.MinimizeOnStartupEnabled = chkMinimizeOnStartup->isChecked();
    });
}

int frmMain::Year() const
{
    return m_platform.clock.Now().date().year();
}
