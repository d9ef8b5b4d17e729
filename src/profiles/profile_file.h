#pragma once

#include "profiles/weather_profile.h"
#include "store/ini_file.h"

#include <optional>

/// Fills the ten weather profiles from the profile file. A slot without a title stays as it is; a
/// missing file leaves all of them unused.
void LoadWeatherProfiles(ProfileTable &profiles, const IniPath &path);
void LoadWeatherProfiles(ProfileTable &profiles, const PrivateProfile &file); ///< Of its image.

/// Fills the forecast profile from the profile file; missing keys get the program's own defaults.
/// @return the caption for `lblForecastCopyright`, with %YEAR% as `year`; nothing when the file
///         holds a blank title, which leaves the fields but `host` as they were.
[[nodiscard]] std::optional<QString> LoadForecastProfile(ForecastProfile &forecast,
                                                         const IniPath &path, int year);
[[nodiscard]] std::optional<QString> LoadForecastProfile(ForecastProfile &forecast,
                                                         const PrivateProfile &file,
                                                         int year); ///< Of its image.

/// Whether two profiles, both as loaded, ask the same service for the same and read its replies in
/// the same way. How they are called and what is known of their source does not count.
[[nodiscard]] bool IsSameService(const WeatherProfile &one, const WeatherProfile &other);

/// Empties a profile for a new one to be shown. `copyrightURL`, the time and location values and
/// tags and `concatinateWindSpeedDir` stay as they were.
void ClearWeatherProfile(WeatherProfile &profile);
