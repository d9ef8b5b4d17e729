#pragma once

#include "core/clock.h"
#include "forecast/forecast_cycle.h"
#include "profiles/weather_profile.h"
#include "station/program_files.h"
#include "station/station_view.h"
#include "store/file_writer.h"
#include "store/min_max_store.h"
#include "store/settings_file.h"
#include "store/settings_recovery.h"
#include "weather/weather_cycle.h"

#include <array>
#include <chrono>
#include <functional>
#include <optional>

/// Who owns the station. A service reads the settings and never writes them.
enum class Owner
{
    Window,
    Service,
};

/// How a profile was picked from the list.
enum class Choice
{
    Chosen,       ///< Its weather is wanted.
    ScrolledPast, ///< Passed on the way to another one.
};

/// Who put a text into a location box.
enum class Editor
{
    Person,
    Program,
};

/// Where a zone comes from.
enum class ZoneSource
{
    Typed,
    Finder, ///< Chosen from the list; its forecast is requested after five seconds.
};

/// The program without its window: settings, profiles, min/max temperatures, both cycles, the
/// output files and the recovery file.
///
/// Two ticks from outside and what a person does drive it; it tells a view what has changed. It
/// belongs to one thread and never waits.
class Station
{
public:
    /// The references must outlive the station.
    Station(ProgramFiles files, const Clock &clock, HttpTransfers &http, FileWriter &writer,
            Owner owner);
    virtual ~Station() = default;
    Q_DISABLE_COPY_MOVE(Station)

    /// Tells `view` from now on; null: nobody. The view must outlive the station or be replaced.
    void SetView(StationView *view);

    // How it starts, in this order.

    void LoadProfiles();

    /// @return what keeps the program from starting, in words for the user.
    [[nodiscard]] std::optional<QString> LoadSettings();

    void LoadExtremes();

    /// Reads profiles and settings again. Values and countdowns stay if profile and locations are
    /// the same; a different profile, location or zone is requested soon, as if it had just been
    /// chosen. An empty file, one that is just being replaced for example, changes nothing.
    /// @return what is wrong with the settings, in words for the user; the profile then stays.
    // The station runs on either way, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
    std::optional<QString> Reload();

    void Start(); ///< Requests go out and changes are kept from here on.

    /// Stores the texts of the location boxes and the settings, and keeps no change after that.
    /// Does nothing if the station is not running.
    /// @param patience the longest wait for files that are being stored.
    void End(std::chrono::milliseconds patience);

    [[nodiscard]] bool IsRunning() const { return m_running; }

    /// Stores the settings, but not those of a service.
    /// @return false if the file could not be written.
    // The next save tries again, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
    bool SaveSettings();

    // What drives it.

    static constexpr std::chrono::milliseconds kPollInterval{250};

    void Poll();       ///< Call it at this interval.
    void TickSecond(); ///< Call it every second.

    // What a person does.

    void RequestWeather(); ///< Now; the interval starts over.
    void RequestForecast();
    void ChooseProfile(int index, Choice choice);
    void EditLocation(std::size_t index, const QString &text, Editor editor);
    void LocationsDone(); ///< The texts are complete; they are requested soon if they are new.
    void SetZone(const QString &state, const QString &zone, ZoneSource source);
    void SetCheckInterval(qint16 seconds); ///< Kept in the settings only if they have one.
    void Change(const std::function<void(Settings &)> &change); ///< Any other setting.

    // The steps of the cycles.

    void StartWeatherRequest();
    void StartForecastRequest();
    void CheckForecastSchedule();
    void ShowWeatherProfile();   ///< The selected one, and its last values.
    void ReloadWeatherProfile(); ///< The same, emptied.
    void DisplayWeatherData();
    void ClearWeatherFields();
    void SaveWeatherData();
    void SaveForecastData();

    /// Takes over a transfer of zone codes, and passes its text to the view.
    void AwaitZoneCodes(TransferHandle handle) { m_zoneCodeThreadHandle = handle; }

    // Its present state.

    [[nodiscard]] const ProgramFiles &Files() const { return m_files; }
    [[nodiscard]] const Settings &CurrentSettings() const { return m_settings; }
    [[nodiscard]] const ProfileTable &Profiles() const { return m_profiles; }
    [[nodiscard]] const MinMaxTemps &MinMax() const { return m_minMax; }
    [[nodiscard]] const WeatherCycle &Weather() const { return m_weather; }
    [[nodiscard]] const ForecastCycle &Forecast() const { return m_forecast; }
    [[nodiscard]] qint16 CheckInterval() const { return m_checkInterval; } ///< Seconds.
    [[nodiscard]] TransferHandle ZoneCodeThreadHandle() const { return m_zoneCodeThreadHandle; }

    /// What the value boxes show, and what goes into the output file.
    [[nodiscard]] const WeatherValues &ShownWeather() const { return m_shown; }

    /// The texts of the location boxes; the profile gets them at the next request.
    [[nodiscard]] const std::array<QString, 4> &LocationTexts() const { return m_locationTexts; }

    /// Whether the selected profile uses a location; the first one is always used.
    [[nodiscard]] bool UsesLocation(std::size_t index) const;

    [[nodiscard]] const QString &NextWeatherCheck() const { return m_nextWeatherCheck; }
    [[nodiscard]] const QString &NextForecastCheck() const { return m_nextForecastCheck; }

    /// The forecast's credit line; nothing if the profile file has a blank title for it.
    [[nodiscard]] const std::optional<QString> &ForecastCredit() const { return m_forecastCredit; }

protected: // a test's station looks inside
    ProgramFiles m_files;
    Settings m_settings;
    ProfileTable m_profiles;
    MinMaxTemps m_minMax;
    WeatherCycle m_weather;
    ForecastCycle m_forecast;

private:
    /// Whose weather is requested.
    struct Asked
    {
        qint16 index = -1;           ///< -1: there is no profile.
        WeatherProfile profile = {}; ///< As loaded.
        std::array<QString, 4> location = {};
    };

    /// What of a product is being stored.
    struct OnItsWay
    {
        quint64 ticket = 0;   ///< 0: nothing.
        QString failure = {}; ///< Why it is not what was requested; empty: it is.
    };

    [[nodiscard]] int ProfileCount() const; ///< As loaded, and as in the list of titles.
    [[nodiscard]] int Year() const;
    [[nodiscard]] bool IsLocationMissing() const;
    [[nodiscard]] bool IsLocationBeingEdited() const;
    [[nodiscard]] bool IsForecastLocationThere() const;

    void ApplySettingsToProfiles();
    void ReloadProfiles();
    std::optional<QString> ReloadSettings();
    [[nodiscard]] Asked AskedNow() const;
    void AskForOtherWeather(const Asked &before);
    void StoreLocations();
    void PollWeather();
    [[nodiscard]] std::optional<QString> ParseWeatherData(const QString &reply);
    void Store(Product product, IniPatch patch, const QString &failure);
    void PollFiles();
    void TellNotStarted(Product product, const QString &port);
    void CountDownToWeather();
    void ReloadWeatherCountdown();
    void PollForecast();
    void PollZoneCodes();
    void CountDownToForecast();
    void CountDownToRecovery();
    void SetNextForecastCheck(const QString &text);

    const Clock &m_clock;
    HttpTransfers &m_http;
    FileWriter &m_writer;
    Owner m_owner;
    StationView *m_view; ///< Never null.

    std::array<WeatherProfile, 10> m_loadedProfiles; ///< As the file had them, before any use.
    std::optional<SettingsRecovery> m_recovery;      ///< There once the settings are loaded.
    std::chrono::milliseconds m_recoveryIn{}; ///< Until changes are stored; 0: there are none.
    TransferHandle m_zoneCodeThreadHandle = 0;
    std::array<OnItsWay, 2> m_onTheirWay; ///< [Product].
    WeatherValues m_shown;
    std::array<QString, 4> m_locationTexts;
    std::optional<std::chrono::nanoseconds> m_locationEdited; ///< When last, in time since boot.
    std::optional<QString> m_forecastCredit;
    QString m_nextWeatherCheck;
    QString m_nextForecastCheck;
    qint16 m_checkInterval; ///< Seconds between two weather requests.
    bool m_running = false;
};
