#include "app/frm_main.h"

#include "app/covered_mnemonics.h"
#include "app/covering_frame.h"
#include "app/long_text_box.h"
#include "app/profile_list.h"
#include "app/start_up.h"
#include "app/tab_button.h"
#include "app/update_cycle.h"
#include "controls/control.h"
#include "controls/elided_label.h"
#include "core/trace.h"
#include "profiles/profile_file.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kMainInterval = 250ms;
constexpr auto kWeatherCheckInterval = 1000ms;
constexpr auto kDisclaimerInterval = 5000ms;

constexpr qint16 kFirstForecastDelay = 5000; // milliseconds

QString BadProfileText(const IniPath &file, const QString &value)
{
    return u"%1: in section Settings, CurrentProfile is \"%2\", which is no number. The program "
           "cannot start with it; correct or delete that line."_s.arg(file.path, value);
}

} // namespace

frmMain::frmMain(ProgramState &state, const Platform &platform, YesNoQuestion askYesNo)
    : frmMainTray(state, platform.panelIcon)
    , m_state(state)
    , m_platform(platform)
    , m_askYesNo(std::move(askYesNo))
{
    setObjectName(u"frmMain"_s);
    setWindowTitle(WindowCaption({}));
    setFixedSize(kClientSize);
    Build(this);
    frmWeatherRaw->setGeometry(rect());
    ConnectControls();
    ConnectWeatherControls();
    new CoveredMnemonics(*this, [this] { return FrameInFront(); }); // owned by the window
    tmrMain.start(kMainInterval);
    tmrDisclamer.start(kDisclaimerInterval);
}

std::optional<QString> frmMain::Form_Load(const QString &command)
{
    Trace(u"Form_Load Point 1");
    const QDate today = m_platform.clock.Now().date();
    lblAppVersion->setText(VersionText(today.year()));
    for (ElidedLabel *title : lblLocationTitle)
        title->clear();
    TakeCommand(command);
    txtWeatherInfo->SetText({});
    Trace(u"Form_Load Point 2");
    m_state.minMax = {.MinMaxDay = qint16(today.day())};
    LoadProfiles();
    Trace(u"Form_Load Point 4.5");
    if (auto problem = TakeSettings())
        return problem;
    Trace(u"Form_Load Point 5");
    FillProfileList();
    Trace(u"Form_Load Point 6");
    ShowWeatherProfile();
    Trace(u"Form_Load Point 7");
    SelectCurrentProfile();
    Trace(u"Form_Load Point 8");
    LoadMinMaxTemps(m_state.minMax, m_state.files.MinMax(), today);
    Trace(u"Form_Load Point 9");
    SecondsToWeatherCheck = 0;
    Trace(u"Form_Load Point 10");
    tmrWeatherCheck.start(kWeatherCheckInterval);
    LoadTray();
    chkMinimizeOnStartup->setChecked(m_state.MinimizeOnStartupEnabled);
    cmdPage_Click(0);
    // The very first run is always shown, or nobody would know where it is.
    if (!m_state.IsFirstRun && m_state.MinimizeOnStartupEnabled)
        StartMinimized();
    else
        show();
    m_state.ForecastRequestCountdown = kFirstForecastDelay;
    m_recovery->Keep(GatherSettings());
    m_running = true;
    return std::nullopt;
}

void frmMain::TakeCommand(const QString &command)
{
    m_state.files.SessionId = SessionFromCommand(command);
    m_state.files.codePage = CodePageFromCommand(command);
    setWindowTitle(WindowCaption(m_state.files.SessionId));
    lblFolderProblem->setText(m_state.folderProblem);
    lblFolderProblem->setVisible(!m_state.folderProblem.isEmpty());
}

void frmMain::LoadProfiles()
{
    Trace(u"Form_Load Point 3");
    LoadWeatherProfiles(m_state.profiles, m_state.files.Profiles());
    Trace(u"Form_Load Point 4");
    const std::optional<QString> credit =
        LoadForecastProfile(m_state.profiles.forecast, m_state.files.Profiles(), Year());
    if (credit)
        lblForecastCopyright->setText(*credit);
}

std::optional<QString> frmMain::TakeSettings()
{
    const IniPath file = m_state.files.Settings();
    auto [settings, badCurrentProfile] = LoadSettings(file);
    m_state.IsFirstRun = settings.IsFirstRun;
    if (badCurrentProfile)
        return BadProfileText(file, *badCurrentProfile);
    m_recovery.emplace(m_state.files.Recovery()).Apply(settings);

    m_state.MinimizeOnStartupEnabled = settings.MinimizeOnStartupEnabled;
    for (size_t i = 0; i < settings.location.size(); ++i)
        m_state.profiles.weather[i].location = settings.location[i];
    m_loadedProfile = settings.currentWeatherProfile;
    m_state.profiles.currentWeatherProfile = settings.currentWeatherProfile;
    txtZoneCode->setText(settings.ForecastZone);
    txtStateCode->setText(settings.ForecastState);
    for (size_t i = 0; i < chkForecastTime.size(); ++i)
        chkForecastTime[i]->setChecked(settings.ForecastSched[i]);
    txtHTTPPort->setText(settings.HTTPPort);
    return std::nullopt;
}

void frmMain::SelectCurrentProfile()
{
    TraceProfileList();
    cboSelectedProfile->setCurrentIndex(m_state.profiles.currentWeatherProfile);
    TraceProfileList();
}

void frmMain::TraceProfileList() const
{
    Trace(u"Me.cboSelectedProfile.ListIndex = ", cboSelectedProfile->currentIndex(),
          u"   currentWeatherProfile = ", m_state.profiles.currentWeatherProfile,
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
    connect(cboSelectedProfile, &ProfileList::Click, this, &frmMain::cboSelectedProfile_Click);
    connect(cboSelectedProfile, &ProfileList::Scroll, this, &frmMain::cboSelectedProfile_Scroll);
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
    if (!std::exchange(m_running, false))
        return;
    for (QTimer *timer : {&tmrMain, &tmrWeatherCheck, &tmrDisclamer})
        timer->stop(); // nothing is requested or written any more
    m_state.profiles.currentWeatherProfile = qint16(cboSelectedProfile->currentIndex());
    m_state.MinimizeOnStartupEnabled = chkMinimizeOnStartup->isChecked();
    if (SaveSettings(m_state.files.Settings(), GatherSettings()))
        m_recovery->Discard();
    UnloadTray();
    UnloadZoneFinder();
}

Settings frmMain::GatherSettings() const
{
    Settings settings;
    for (size_t i = 0; i < settings.location.size(); ++i)
        settings.location[i] = m_state.profiles.weather[i].location;
    settings.ForecastZone = txtZoneCode->text();
    settings.ForecastState = txtStateCode->text();
    for (size_t i = 0; i < chkForecastTime.size(); ++i)
        settings.ForecastSched[i] = chkForecastTime[i]->isChecked();
    // Without any profile the choice of the last run is kept for when the profiles are back.
    const qint16 current = m_state.profiles.currentWeatherProfile;
    settings.currentWeatherProfile = current < 0 ? m_loadedProfile : current;
    settings.MinimizeOnStartupEnabled = m_state.MinimizeOnStartupEnabled;
    settings.HTTPPort = txtHTTPPort->text();
    return settings;
}

bool frmMain::Unload(UnloadMode unloadMode)
{
    if (!m_running)
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
    frmWeatherRaw->raise(); // while it is open it covers tabs and pages alike
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
    m_state.MinimizeOnStartupEnabled = chkMinimizeOnStartup->isChecked();
}

int frmMain::Year() const
{
    return m_platform.clock.Now().date().year();
}
