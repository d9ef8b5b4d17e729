#pragma once

#include "profiles/forecast_profile.h"
#include "store/ini_file.h"

/// Writes the profile's forecast and its credit lines to the forecast output file, in one go.
/// @param year takes the place of %YEAR% in the credit line.
void SaveForecastData(const IniPath &file, const ForecastProfile &profile, int year);
