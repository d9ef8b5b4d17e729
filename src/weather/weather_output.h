#pragma once

#include "profiles/weather_profile.h"
#include "store/file_writer.h"

/// The values as the display shows them: unchanged, but the previous day's extremes read "N/A" when
/// their number is at least 200 or at most -200, as the store's neutral values are.
[[nodiscard]] WeatherValues DisplayedValues(const WeatherValues &values);

/// What the display shows, for the weather output file.
///
/// @param shown   the precipitation is not written.
/// @param profile credit line and address; null: those two keys are left as they are.
/// @param year    takes the place of %YEAR% in the credit line.
[[nodiscard]] IniPatch WeatherPatch(const IniPath &file, const WeatherValues &shown,
                                    const WeatherProfile *profile, int year);
