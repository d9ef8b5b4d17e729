#include "profiles/profile_file.h"
#include "station/station.h"
#include "station/update_cycle.h"

#include <algorithm>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// How the station picks up what somebody has changed in its files.

namespace {

QString ProfileStaysText(const IniPath &file, const QString &value)
{
    return u"%1: in section Settings, CurrentProfile is \"%2\", which is no number. The profile "
           "stays as it was; correct or delete that line."_s.arg(file.path, value);
}

bool IsWithoutProfiles(const ProfileTable &profiles)
{
    return std::ranges::all_of(
        profiles.weather, [](const WeatherProfile &profile) { return profile.title.isEmpty(); });
}

} // namespace

std::optional<QString> Station::Reload()
{
    const Asked before = AskedNow();
    const auto forecast =
        std::tuple(m_profiles.forecast.host, m_settings.ForecastState, m_settings.ForecastZone);
    ReloadProfiles();
    std::optional<QString> problem = ReloadSettings();
    m_locationEdited.reset();
    ShowWeatherProfile();
    AskForOtherWeather(before);
    if (forecast
        != std::tie(m_profiles.forecast.host, m_settings.ForecastState, m_settings.ForecastZone))
        m_forecast.SetForecastRequestCountdown(kMillisecondsToNewZone);
    return problem;
}

Station::Asked Station::AskedNow() const
{
    const WeatherProfile *selected = m_profiles.Selected();
    if (selected == nullptr)
        return {};
    // Not the profile in use: reading a reply changes its tags.
    const auto index = std::size_t(m_profiles.currentWeatherProfile);
    return {.index = m_profiles.currentWeatherProfile,
            .profile = m_loadedProfiles[index],
            .location = selected->location};
}

void Station::AskForOtherWeather(const Asked &before)
{
    const Asked now = AskedNow();
    if (now.index != before.index || !IsSameService(now.profile, before.profile)) {
        m_weather.GiveUp(); // its reply would be read with other tags
        m_weather.SetSecondsToWeatherCheck(kSecondsToNewProfile);
    } else if (now.location != before.location) {
        m_weather.GiveUp();
        m_weather.SetSecondsToWeatherCheck(
            std::min(m_weather.SecondsToWeatherCheck(), kSecondsToNewLocation));
    }
    // The new service may measure at another place. One that returns after none at all is the one
    // from before.
    const bool isOtherService =
        now.index != before.index || now.profile.baseURL != before.profile.baseURL;
    if (before.index >= 0 && isOtherService)
        ResetTodayMinMax(m_minMax, m_files.MinMax());
}

void Station::ReloadProfiles()
{
    const IniFile file(m_files.Profiles());
    ProfileTable fresh;
    LoadWeatherProfiles(fresh, file.Profile());
    if (IsWithoutProfiles(fresh))
        return;
    m_forecastCredit = LoadForecastProfile(fresh.forecast, file.Profile(), Year());
    fresh.forecast.forecastText = m_profiles.forecast.forecastText;
    const auto loadedBefore = std::exchange(m_loadedProfiles, fresh.weather);
    for (std::size_t i = 0; i < fresh.weather.size(); ++i) {
        if (IsSameService(m_loadedProfiles[i], loadedBefore[i]))
            fresh.weather[i].values = m_profiles.weather[i].values;
    }
    m_profiles = std::move(fresh);
    ApplySettingsToProfiles();
}

std::optional<QString> Station::ReloadSettings()
{
    if (m_recoveryIn > 0ms && m_owner == Owner::Window)
        m_recovery->Keep(m_settings); // a change just made is part of the settings
    m_recoveryIn = 0ms;
    const IniFile file(m_files.Settings());
    if (file.Profile().Bytes().isEmpty())
        return std::nullopt;
    auto [settings, badCurrentProfile] = ReadSettings(file.Profile());
    settings.IsFirstRun = m_settings.IsFirstRun;
    if (badCurrentProfile)
        settings.currentWeatherProfile = m_settings.currentWeatherProfile;
    m_recovery.emplace(m_files.Recovery()).Apply(settings);
    m_recovery->Keep(settings);

    const Settings before = std::exchange(m_settings, std::move(settings));
    ApplySettingsToProfiles();
    for (std::size_t i = 0; i < before.location.size(); ++i) {
        if (m_settings.location[i] != before.location[i])
            m_profiles.weather[i].values = {};
    }
    if (m_settings.CheckInterval != before.CheckInterval)
        m_checkInterval = CheckIntervalOf(m_settings);
    if (!badCurrentProfile)
        return std::nullopt;
    return ProfileStaysText(m_files.Settings(), *badCurrentProfile);
}
