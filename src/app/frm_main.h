#pragma once

#include "app/page_controls.h"
#include "app/platform.h"
#include "app/window_memory.h"
#include "controls/message_boxes.h"
#include "start/command_line.h"
#include "station/station.h"
#include "tray/window_in_tray.h"

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

/// The main window: three pages, one of them shown, and the timers that drive the station.
///
/// The window decides nothing: a handler reads texts from controls and calls one routine of the
/// station, and what the station reports is shown. Its routines are slots, so that a test can call
/// them instead of waiting for a timer.
class frmMain final : public WindowInTray, private StationView, private PageControls
{
    Q_OBJECT

public:
    static constexpr QSize kClientSize{365, 460}; ///< Logical pixels, without frame and title.

    /// Becomes the station's view. All references must outlive the window.
    frmMain(Station &station, WindowMemory &memory, const Platform &platform,
            YesNoQuestion askYesNo);
    ~frmMain() override;
    Q_DISABLE_COPY_MOVE(frmMain)

    /// Starts the program and shows the window, or minimises it at once. Call it once.
    /// @param command the command line, for the trace.
    /// @return why the program cannot start, in words for the user; nothing if it runs.
    [[nodiscard]] std::optional<QString> Form_Load(const CommandLine &command);

    /// Asks the user if the title bar was used, and sets `cancel` if the program is to go on.
    void Form_QueryUnload(bool &cancel, UnloadMode unloadMode);

    /// Saves the settings while the program runs; before and after that it does nothing.
    void SaveSettings();

    /// Ends the station, which saves the settings, and removes the tray icon. Only the first call
    /// does something, and none if the settings were never loaded.
    void Form_Unload();

    /// Ends the program unless the user refuses.
    /// @return false if it goes on.
    bool Unload(UnloadMode unloadMode);

Q_SIGNALS:
    void Unloaded(); ///< The program has nothing more to do.

public Q_SLOTS:
    void cmdPage_Click(int Index);     ///< Shows page `Index`, 0 to 2, instead of the current one.
    void txtFocus_Change();            ///< Drops what was typed into the box out of sight.
    void txtFocus_LostFocus();         ///< The same, when another control gets the focus.
    void txtHTTPPort_LostFocus();      ///< Makes the text a port number; "80" if it holds none.
    void chkMinimizeOnStartup_Click(); ///< Keeps the state of the box as a setting.

    void tmrMain_Timer();         ///< Every 250 ms: the station looks at its transfers.
    void tmrWeatherCheck_Timer(); ///< Every second: the station counts down to its requests.
    void tmrDisclamer_Timer();    ///< Every 5 s: shows the credit lines or the other notices.

    void btnGetWeather_Click();     ///< Requests the weather; the interval starts over.
    void btnGetForecast_Click();    ///< Requests the forecast, if zone and state are given.
    void btnSelectNOAAZone_Click(); ///< Opens the zone finder, or brings the open one to the front.

    void btnShowRaw_Click();         ///< Covers the window with the last reply as received.
    void btnWeatherSettings_Click(); ///< Covers the page with the choice of profile and location.
    void btnWeatherDone_Click();     ///< Closes that frame; locations typed there are complete.

    /// Runs once for every choice from the list, also of the current profile, and for every change
    /// by code: the station changes over to the profile.
    void cboSelectedProfile_Click();

    /// Runs when the opened list is scrolled: shows the current profile again, without storing what
    /// was typed.
    void cboSelectedProfile_Scroll();

    // Steps of the station's cycles, one by one.

    void StartWeatherRequest();   ///< Requests the weather; the interval goes on.
    void StartForecastRequest();  ///< Requests the forecast, whatever the codes are.
    void CheckForecastSchedule(); ///< Requests the forecast if a slot has come.
    void DisplayWeatherData();    ///< Fills the value boxes from the current profile.
    void ClearWeatherFields();    ///< Empties the value boxes.
    void SaveWeatherData();       ///< Writes the weather output file.
    void SaveForecastData();      ///< Writes the forecast output file.

    void FillProfileList();      ///< Selects nothing and reports nothing.
    void ShowWeatherProfile();   ///< Shows the current profile, its locations and its last values.
    void ReloadWeatherProfile(); ///< The same after emptying the profile, its locations too.

protected:
    void closeEvent(QCloseEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    // What the station tells.
    void SetStatus(const QString &text) override;
    void WeatherChanged() override;
    void ForecastChanged() override;
    void ProfilesChanged() override;
    void CountdownsChanged() override;
    void RequestStarted() override;
    void RawReply(const QString &text) override;
    void ZoneCodes(const QString &text) override;

    void ConnectControls();
    void ConnectWeatherControls();
    void ConnectSettings();

    void TraceCommand(const CommandLine &command);
    void LoadProfiles();
    void ShowSettings();
    void SelectCurrentProfile();
    void TraceProfileList() const;
    void PassCheckInterval();
    void PassZone();
    void SetZone(const QString &zone, const QString &stateCode);
    void UnloadZoneFinder();
    void ShowLocations();
    [[nodiscard]] QWidget *FrameInFront() const;
    [[nodiscard]] int Year() const;

    Station &m_station;
    WindowMemory &m_memory;
    Platform m_platform;
    YesNoQuestion m_askYesNo;
    QPointer<frmFindNOAAZones> m_zoneFinder; ///< Null while it is not open.

    std::array<std::unique_ptr<QObject>, 2> m_focusWatches; ///< Of txtFocus and txtHTTPPort.

    QTimer tmrMain;         ///< 250 ms: the station looks at its transfers.
    QTimer tmrWeatherCheck; ///< 1 s: the station counts down to its requests.
    QTimer tmrDisclamer;    ///< 5 s: the notices take turns.
};
