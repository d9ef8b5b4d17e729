#include "station/station.h"

#include "core/text.h"
#include "profiles/profile_file.h"
#include "station/silent_view.h"
#include "station/update_cycle.h"
#include "weather/weather_output.h"
#include "zones/zone_code_transfer.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// How the station starts and ends, and what it keeps: settings, profiles, locations.

namespace {

constexpr auto kFirstForecastDelay = 5000ms;
constexpr auto kRecoveryDelay = 1000ms; // several changes are stored together

constexpr auto kTypingPause = 3s; // this long after the last key a location counts as complete

StationView *ViewOf(StationView *view)
{
    static SilentView nobody; // has no state
    return view == nullptr ? &nobody : view;
}

QString CannotStartWithProfileText(const IniPath &file, const QString &value)
{
    return u"%1: in section Settings, CurrentProfile is \"%2\", which is no number. The program "
           "cannot start with it; correct or delete that line."_s.arg(file.path, value);
}

} // namespace

Station::Station(ProgramFiles files, const Clock &clock, HttpTransfers &http, FileWriter &writer,
                 Owner owner)
    : m_files(std::move(files))
    , m_weather(http)
    , m_forecast(http)
    , m_clock(clock)
    , m_http(http)
    , m_writer(writer)
    , m_owner(owner)
    , m_view(ViewOf(nullptr))
    , m_nextWeatherCheck(u"Loading..."_s)
    , m_nextForecastCheck(u"Loading..."_s)
    , m_checkInterval(CheckIntervalOf({}))
{}

void Station::SetView(StationView *view)
{
    m_view = ViewOf(view);
}

void Station::LoadProfiles()
{
    const IniFile file(m_files.Profiles());
    LoadWeatherProfiles(m_profiles, file.Profile());
    m_loadedProfiles = m_profiles.weather;
    m_forecastCredit = LoadForecastProfile(m_profiles.forecast, file.Profile(), Year());
}

std::optional<QString> Station::LoadSettings()
{
    const IniPath file = m_files.Settings();
    const auto [settings, badCurrentProfile] =
        m_owner == Owner::Window ? ::LoadSettings(file) : ReadSettings(IniFile(file).Profile());
    m_settings = settings;
    if (badCurrentProfile)
        return CannotStartWithProfileText(file, *badCurrentProfile);
    m_recovery.emplace(m_files.Recovery()).Apply(m_settings);
    m_checkInterval = CheckIntervalOf(m_settings);
    ApplySettingsToProfiles();
    return std::nullopt;
}

void Station::ApplySettingsToProfiles()
{
    for (std::size_t i = 0; i < m_settings.location.size(); ++i)
        m_profiles.weather[i].location = m_settings.location[i];
    m_profiles.currentWeatherProfile = m_settings.currentWeatherProfile;
}

void Station::LoadExtremes()
{
    LoadMinMaxTemps(m_minMax, m_files.MinMax(), m_clock.Now().date());
}

void Station::Start()
{
    m_weather.SetSecondsToWeatherCheck(0);
    m_forecast.SetForecastRequestCountdown(qint16(kFirstForecastDelay.count()));
    m_recovery->Keep(m_settings);
    m_recoveryIn = 0ms;
    m_running = true;
}

void Station::End(std::chrono::milliseconds patience)
{
    if (!std::exchange(m_running, false))
        return;
    StoreLocations();
    SaveSettings();
    // The trace names what is not stored by then; such a file keeps what it has.
    static_cast<void>(m_writer.Flush(patience));
    PollFiles();
}

bool Station::SaveSettings()
{
    if (m_owner == Owner::Service)
        return true;
    m_recoveryIn = 0ms;
    if (!::SaveSettings(m_files.Settings(), m_settings)) {
        m_recovery->Keep(m_settings);
        return false;
    }
    m_recovery->Discard(m_settings);
    return true;
}

void Station::Poll()
{
    PollWeather();
    PollForecast();
    PollFiles();
    PollZoneCodes();
    CountDownToForecast();
    CountDownToRecovery();
}

void Station::PollZoneCodes()
{
    if (m_zoneCodeThreadHandle == 0)
        return;
    if (const auto text = CheckZoneCodeTransfer(m_zoneCodeThreadHandle, m_http, *m_view))
        m_view->ZoneCodes(*text);
}

void Station::Change(const std::function<void(Settings &)> &change)
{
    const Settings before = m_settings;
    change(m_settings);
    if (m_running && m_settings != before && m_recoveryIn == 0ms)
        m_recoveryIn = kRecoveryDelay;
}

void Station::CountDownToRecovery()
{
    if (m_recoveryIn == 0ms || !m_running || m_owner == Owner::Service)
        return;
    m_recoveryIn = std::max(0ms, m_recoveryIn - kPollInterval);
    if (m_recoveryIn == 0ms)
        m_recovery->Keep(m_settings);
}

void Station::SetZone(const QString &state, const QString &zone, ZoneSource source)
{
    if (source == ZoneSource::Finder && zone != m_settings.ForecastZone)
        m_forecast.SetForecastRequestCountdown(kMillisecondsToNewZone);
    Change([&](Settings &settings) {
        settings.ForecastState = state;
        settings.ForecastZone = zone;
    });
}

void Station::ChooseProfile(int index, Choice choice)
{
    const auto chosen = qint16(index);
    if (choice == Choice::ScrolledPast) {
        m_profiles.currentWeatherProfile = chosen;
        ShowWeatherProfile();
        return;
    }
    StoreLocations(); // of the profile that is still the current one
    if (chosen == m_profiles.currentWeatherProfile)
        return;
    // An index in the list is one in the table, gaps between the profiles or not.
    m_profiles.currentWeatherProfile = chosen;
    m_weather.SetSecondsToWeatherCheck(kSecondsToNewProfile);
    ShowWeatherProfile();
    // The new service may measure at another place.
    ResetTodayMinMax(m_minMax, m_files.MinMax());
}

int Station::ProfileCount() const
{
    return int(std::ranges::count_if(
        m_loadedProfiles, [](const WeatherProfile &profile) { return !profile.title.isEmpty(); }));
}

void Station::ShowWeatherProfile()
{
    qint16 &current = m_profiles.currentWeatherProfile;
    current = UsableProfileIndex(current, ProfileCount());
    // Without profiles the settings keep the last choice for when they are back.
    if (current >= 0)
        Change([&](Settings &settings) { settings.currentWeatherProfile = current; });
    for (const QuantityRow &row : kQuantities) {
        if (row.emptiedByNewProfile)
            m_shown[row.quantity].clear();
    }
    const WeatherProfile *profile = m_profiles.Selected();
    m_locationTexts = profile == nullptr ? decltype(m_locationTexts)() : profile->location;
    if (profile != nullptr)
        m_shown = DisplayedValues(profile->values);
    m_view->ProfilesChanged();
}

void Station::ReloadWeatherProfile()
{
    if (WeatherProfile *profile = m_profiles.Selected()) {
        ClearWeatherProfile(*profile);
        m_locationTexts = {};
        StoreLocations();
    }
    ShowWeatherProfile();
}

bool Station::UsesLocation(std::size_t index) const
{
    const WeatherProfile *profile = m_profiles.Selected();
    return index == 0
        || (profile != nullptr && !TrimSpaces(profile->locationTitle[index]).isEmpty());
}

void Station::EditLocation(std::size_t index, const QString &text, Editor editor)
{
    m_locationTexts[index] = text;
    if (editor == Editor::Person)
        m_locationEdited = m_clock.SinceBoot();
}

bool Station::IsLocationBeingEdited() const
{
    return m_locationEdited && m_clock.SinceBoot() - *m_locationEdited < kTypingPause;
}

void Station::LocationsDone()
{
    m_locationEdited.reset();
    StoreLocations();
    if (m_weather.HasAskedFor(m_profiles.currentWeatherProfile, m_locationTexts))
        return;
    if (m_weather.HasAskedFor(m_profiles.currentWeatherProfile))
        m_weather.GiveUp(); // its reply would be stored under the new place's name
    m_weather.SetSecondsToWeatherCheck(
        std::min(m_weather.SecondsToWeatherCheck(), kSecondsToNewLocation));
}

void Station::StoreLocations()
{
    WeatherProfile *profile = m_profiles.Selected();
    if (profile == nullptr)
        return;
    profile->location = m_locationTexts;
    const auto index = std::size_t(m_profiles.currentWeatherProfile);
    Change([&](Settings &settings) { settings.location[index] = m_locationTexts; });
}

int Station::Year() const
{
    return m_clock.Now().date().year();
}
