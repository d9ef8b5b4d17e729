#pragma once

#include "core/status_line.h"
#include "net/http_transfers.h"
#include "profiles/forecast_profile.h"

#include <QString>

/// What this run remembers of its forecasts.
struct ForecastState
{
    QString ForecastZoneCode = {};  ///< Of the last request; locates the zone in the reply.
    QString CleanForecastText = {}; ///< The last forecast received.
    bool received = false;          ///< There has been one.
    QString failure = {}; ///< Why the last transfer brought none, in words; empty if it did.
};

/// Where to request a forecast.
struct ForecastAddress
{
    QString host = {}; ///< Scheme and host, no slash at the end.
    QString port = {}; ///< The port box's text.
    QString state = {};
    QString zoneCode = {};
};

/// Starts the transfer of a forecast in the background, giving up one that is still running.
/// Reports on `status` what it does.
///
/// @param ForecastThreadHandle the present transfer, 0 for none; replaced by the new one.
/// @return true if the transfer was started.
[[nodiscard]] bool RequestForecast(const ForecastAddress &address, ForecastState &forecast,
                                   TransferHandle &ForecastThreadHandle, HttpTransfers &http,
                                   StatusLine &status);

/// Receives the text of the transfer, which has ended, and closes the transfer. A forecast is
/// cleaned and stored in `forecast` and in the profile's `forecastText`; if there is none, both
/// texts stay unchanged and `status` says why.
///
/// @param ForecastThreadHandle set to 0; if it is 0 already, nothing happens.
/// @return true if a forecast was received.
// The stored text says as much, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
bool ReceiveForecast(ForecastState &forecast, ForecastProfile &profile,
                     TransferHandle &ForecastThreadHandle, HttpTransfers &http, StatusLine &status);

/// What to do after polling the forecast's transfer.
enum class ForecastPoll
{
    Waiting,      ///< Nothing: the transfer is running.
    ShowAndSave,  ///< Show the profile's `forecastText` and save it: the new forecast or, when none
                  ///< was received, the last one of this run.
    RequestAgain, ///< Request again after kForecastRetryMilliseconds. This run has no forecast yet,
                  ///< so there is nothing to show and the file keeps what it has.
};

inline constexpr qint16 kForecastRetryMilliseconds = 30000;

/// Receives the forecast if the transfer has ended.
[[nodiscard]] ForecastPoll PollForecast(ForecastState &forecast, ForecastProfile &profile,
                                        TransferHandle &ForecastThreadHandle, HttpTransfers &http,
                                        StatusLine &status);
