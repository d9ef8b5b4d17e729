#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"
#include "profiles/weather_profile.h"

#include <QString>

/// The address that `profile` asks: its template with "%PORT%" and "%LOC1%".."%LOC4%" filled.
[[nodiscard]] QString RequestAddress(const WeatherProfile &profile, const QString &port);

/// Starts the transfer of the current weather of `profile` in the background; a transfer that still
/// runs is given up. Reports on `status` what it does.
///
/// @param WeatherThreadHandle the transfer so far, 0 for none; becomes the new one.
/// @return true when the transfer was started. False without any further change or message when
///         the profile (null: none is selected) has no address.
[[nodiscard]] bool RequestCurrentWeather(const WeatherProfile *profile, const QString &port,
                                         TransferHandle &WeatherThreadHandle, HttpTransfers &http,
                                         StatusLine &status);
