#pragma once

#include "profiles/weather_profile.h"
#include "store/file_writer.h"

/// The values as the display shows them: unchanged, except that the previous day's extremes read
/// "N/A" if they are at least 200 or at most -200, as the store's neutral values are.
[[nodiscard]] WeatherValues DisplayedValues(const WeatherValues &values);

/// What the display shows, for the weather output file.
///
/// @param shown   all but the precipitation is written.
/// @param profile for credit line and address; null leaves these two keys unchanged.
/// @param year    replaces %YEAR% in the credit line.
[[nodiscard]] IniPatch WeatherPatch(const IniPath &file, const WeatherValues &shown,
                                    const WeatherProfile *profile, int year);
