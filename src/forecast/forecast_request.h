#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"
#include "profiles/forecast_profile.h"

#include <QString>

/// What is remembered of the forecasts of this run.
struct ForecastState
{
    QString ForecastZoneCode = {};  ///< Of the last request; finds the zone in the reply.
    QString CleanForecastText = {}; ///< The last forecast received.
    bool received = false;          ///< There was one.
    QString failure = {}; ///< Why the last transfer brought none, in words; empty: it did.
};

/// Where a forecast is asked for.
struct ForecastAddress
{
    QString host = {}; ///< Scheme and host, no slash at the end.
    QString port = {}; ///< The port box's text.
    QString state = {};
    QString zoneCode = {};
};

/// Starts the transfer of a forecast in the background; a transfer that still runs is given up.
/// Reports on `status` what it does.
///
/// @param ForecastThreadHandle the transfer so far, 0 for none; becomes the new one.
/// @return true when the transfer was started.
[[nodiscard]] bool RequestForecast(const ForecastAddress &address, ForecastState &forecast,
                                   TransferHandle &ForecastThreadHandle, HttpTransfers &http,
                                   StatusLine &status);

/// Takes the text of the transfer, which has ended, and closes it. A forecast is cleaned and stored
/// in `forecast` and in the profile's `forecastText`; without one both stay as they are, and
/// `status` tells why.
///
/// @param ForecastThreadHandle set to 0; when it is 0 nothing happens.
/// @return true when a forecast was received.
// The stored text says as much, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
bool ReceiveForecast(ForecastState &forecast, ForecastProfile &profile,
                     TransferHandle &ForecastThreadHandle, HttpTransfers &http, StatusLine &status);

/// What the window has to do after it looked at the forecast's transfer.
enum class ForecastPoll
{
    Waiting,      ///< Nothing: the transfer runs.
    ShowAndSave,  ///< Show the profile's `forecastText` and save it: the new forecast or, when none
                  ///< was received, the last one of this run.
    RequestAgain, ///< Set `ForecastRequestCountdown` to kForecastRetryMilliseconds. Nothing was
                  ///< received in this run, so that nothing is shown and the file keeps what it
                  ///< has.
};

inline constexpr qint16 kForecastRetryMilliseconds = 30000;

/// Looks whether the transfer has ended, and if so receives the forecast.
[[nodiscard]] ForecastPoll PollForecast(ForecastState &forecast, ForecastProfile &profile,
                                        TransferHandle &ForecastThreadHandle, HttpTransfers &http,
                                        StatusLine &status);
