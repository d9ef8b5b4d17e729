#pragma once

#include "profiles/forecast_profile.h"
#include "store/file_writer.h"

/// The profile's forecast and its credit lines, for the forecast output file.
/// @param year replaces %YEAR% in the credit line.
[[nodiscard]] IniPatch ForecastPatch(const IniPath &file, const ForecastProfile &profile, int year);
