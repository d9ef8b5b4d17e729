#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"
#include "profiles/weather_profile.h"

#include <QString>

/// The address to request: the profile's template with "%PORT%" and "%LOC1%".."%LOC4%" filled in.
[[nodiscard]] QString RequestAddress(const WeatherProfile &profile, const QString &port);

/// Starts the transfer of the current weather of `profile` in the background, giving up one that is
/// still running. Reports on `status` what it does.
///
/// @param WeatherThreadHandle the present transfer, 0 for none; replaced by the new one.
/// @return true if the transfer was started. False, without any change or message, if the profile
///         has no address or is null (none is selected).
[[nodiscard]] bool RequestCurrentWeather(const WeatherProfile *profile, const QString &port,
                                         TransferHandle &WeatherThreadHandle, HttpTransfers &http,
                                         StatusLine &status);
