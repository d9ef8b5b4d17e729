#pragma once

#include "profiles/weather_profile.h"
#include "store/ini_file.h"

#include <optional>

/// Fills the ten weather profiles from the profile file. A slot without a title stays as it is; if
/// the file is missing, all of them remain unused.
void LoadWeatherProfiles(ProfileTable &profiles, const IniPath &path);
void LoadWeatherProfiles(ProfileTable &profiles, const PrivateProfile &file); ///< From its image.

/// Fills the forecast profile from the profile file; missing keys get the program's own defaults.
/// @return the caption for `lblForecastCopyright`, with `year` for %YEAR%; nothing if the file has
///         a blank title, which leaves all fields but `host` unchanged.
[[nodiscard]] std::optional<QString> LoadForecastProfile(ForecastProfile &forecast,
                                                         const IniPath &path, int year);
[[nodiscard]] std::optional<QString> LoadForecastProfile(ForecastProfile &forecast,
                                                         const PrivateProfile &file,
                                                         int year); ///< From its image.

/// Whether two profiles, both as loaded, request the same from the same service and read its
/// replies in the same way. Titles, descriptions and credits do not count.
[[nodiscard]] bool IsSameService(const WeatherProfile &one, const WeatherProfile &other);

/// Clears a profile before a new one is shown. `copyrightURL`, `concatinateWindSpeedDir`, and the
/// values and tags of time and location stay.
void ClearWeatherProfile(WeatherProfile &profile);
