#pragma once

#include "app/frm_main_tray.h"
#include "app/message_boxes.h"
#include "app/page_controls.h"
#include "app/platform.h"
#include "app/program_state.h"
#include "store/settings_recovery.h"
#include "weather/weather_data.h"

#include <QPointer>
#include <QTimer>

#include <memory>
#include <optional>

class frmFindNOAAZones;

/// Who ends the program. Only the user at the title bar is asked.
enum class UnloadMode
{
    TitleBar = 0,
    Code = 1,
    DesktopSession = 2,
    Signal = 3,
};

/// The main window: three pages, one of them shown, and the timers that drive the program.
///
/// The window holds controls and hands events to the routines of the other folders; what there is
/// to decide is decided in update_cycle.h. Its routines are slots under the names that users and
/// neighbours know, so that a test can call them instead of waiting for a timer.
class frmMain final : public frmMainTray, private WeatherDataHost, private PageControls
{
    Q_OBJECT

public:
    static constexpr QSize kClientSize{365, 460}; ///< Logical pixels, without frame and title.

    frmMain(ProgramState &state, const Platform &platform, YesNoQuestion askYesNo);

    /// Brings the program up and shows the window, or starts it minimised; to be called once.
    /// @return what keeps the program from starting, for the user; nothing when it runs.
    [[nodiscard]] std::optional<QString> Form_Load(const QString &command);

    /// Sets `cancel` when the user, asked because the title bar was used, wants to stay.
    void Form_QueryUnload(bool &cancel, UnloadMode unloadMode);

    /// Saves the settings and removes the tray icon; does so once, however the end came, and only
    /// if the settings have been loaded.
    void Form_Unload();

    /// Ends the program unless the user refuses.
    /// @return false when it goes on.
    bool Unload(UnloadMode unloadMode);

Q_SIGNALS:
    void Unloaded(); ///< The program has nothing more to do.

public Q_SLOTS:
    void cmdPage_Click(int Index);
    void txtFocus_Change();
    void txtFocus_LostFocus();
    void txtHTTPPort_LostFocus();
    void chkMinimizeOnStartup_Click();

    void tmrMain_Timer();
    void tmrWeatherCheck_Timer();
    void tmrDisclamer_Timer();
    void btnGetWeather_Click();
    void btnGetForecast_Click();
    void btnSelectNOAAZone_Click();

    void btnShowRaw_Click();
    void btnWeatherSettings_Click();
    void btnWeatherDone_Click();
    void cboSelectedProfile_Click();
    void cboSelectedProfile_Scroll();

    void StartWeatherRequest();
    void StartForecastRequest();
    void CheckForecastSchedule();
    void SaveForecastData();
    void DisplayWeatherData();
    void ClearWeatherFields();
    void SaveWeatherData();

    void FillProfileList();
    void ShowWeatherProfile();
    void ReloadWeatherProfile();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    // What the weather routines report to the window.
    void SetStatus(const QString &text) override;
    void ShowRawData(const QString &reply) override;
    void CheckMinMaxTemp(double temp) override;
    [[nodiscard]] const MinMaxTemps &MinMax() const override;

    void ConnectControls();
    void ConnectWeatherControls();

    void TakeCommand(const QString &command);
    void LoadProfiles();
    [[nodiscard]] std::optional<QString> TakeSettings();
    [[nodiscard]] Settings GatherSettings() const;
    void SelectCurrentProfile();
    void TraceProfileList() const;

    void PollWeatherTransfer();
    void CountDownToWeather();
    void ReloadWeatherCountdown();
    void PollForecastTransfer();
    void PollZoneCodeTransfer();
    void CountDownToForecast();
    void TakeZone(const QString &zone, const QString &stateCode);
    void UnloadZoneFinder();
    [[nodiscard]] bool IsForecastLocationThere() const;

    void StoreLocations();
    void ShowLocations(const WeatherProfile &profile);
    [[nodiscard]] QWidget *FrameInFront() const;
    [[nodiscard]] int Year() const;

    ProgramState &m_state;
    Platform m_platform;
    YesNoQuestion m_askYesNo;
    QPointer<frmFindNOAAZones> m_zoneFinder; ///< Null while it is not open.

    std::optional<SettingsRecovery> m_recovery; ///< From the loading of the settings on.
    qint16 SecondsToWeatherCheck = 0; ///< To the next request; counted by tmrWeatherCheck.
    qint16 m_requestedProfile = -1;   ///< The profile that the weather transfer was started for.
    qint16 m_loadedProfile = 0;       ///< As the settings had it, kept while there is no profile.
    bool m_running = false;           ///< From the end of Form_Load() to Form_Unload().

    std::array<std::unique_ptr<QObject>, 2> m_focusWatches; ///< Of txtFocus and txtHTTPPort.

    QTimer tmrMain;         ///< 250 ms: polls the transfers, counts down to the forecast request.
    QTimer tmrWeatherCheck; ///< 1 s: counts down to the weather request.
    QTimer tmrDisclamer;    ///< 5 s: the notices take turns.
};
