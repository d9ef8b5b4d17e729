#include "forecast/forecast_request.h"

#include "core/text.h"
#include "core/trace.h"
#include "forecast/forecast_text.h"
#include "net/port_text.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString Url(const ForecastAddress &address)
{
    QString url = address.host + "%PORT%/data/forecasts/zone/%STATE%/%ZONECODE%.txt"_L1;
    url.replace("%PORT%"_L1, PortSuffix(address.port));
    url.replace("%STATE%"_L1, address.state.toLower());
    url.replace("%ZONECODE%"_L1, address.zoneCode.toLower());
    return url;
}

/// Cleans and stores the forecast if the reply holds one; says on `status` what came of it.
bool ApplyReply(ForecastState &forecast, ForecastProfile &profile, TransferHandle handle,
                HttpTransfers &http, StatusLine &status)
{
    QString reply;
    if (http.Net_HTTPThreadReturnText(handle, reply) <= 0) {
        status.SetStatus(u"An error occured receiving forecast"_s); // [sic]
        forecast.failure = http.Net_HTTPThreadReply(handle).errorText;
        Trace(u"An error occurred while retrieving the forecast. ", forecast.failure);
        return false;
    }
    const QStringView product = TrimSpaces(reply);
    if (product.isEmpty()) {
        forecast.failure = u"Forecast host returned no forecast data"_s;
        status.SetStatus(forecast.failure);
        return false;
    }
    forecast.failure.clear();
    forecast.CleanForecastText = CleanForecast(product, forecast.ForecastZoneCode);
    forecast.received = true;
    profile.forecastText = forecast.CleanForecastText;
    status.SetStatus(u"Received forecast data"_s);
    return true;
}

} // namespace

bool RequestForecast(const ForecastAddress &address, ForecastState &forecast,
                     TransferHandle &ForecastThreadHandle, HttpTransfers &http, StatusLine &status)
{
    if (ForecastThreadHandle != 0)
        http.Net_HTTPThreadClose(ForecastThreadHandle);
    ForecastThreadHandle = http.Net_HTTPThreadOpen(address.port);
    if (ForecastThreadHandle == 0) {
        const QString where = " on port "_L1 + address.port + " for weather forecast"_L1;
        Trace(u"Unable to open HTTP handle", where);
        status.SetStatus("Unable to open request"_L1 + where); // users do not know handles
        return false;
    }

    forecast.ForecastZoneCode = address.zoneCode;
    const QString url = Url(address);
    Trace(u"Request URL: ", url);
    status.SetStatus("Requesting Forecast Data From URL: "_L1 + url);
    return http.Net_HTTPThreadGet(ForecastThreadHandle, url);
}

bool ReceiveForecast(ForecastState &forecast, ForecastProfile &profile,
                     TransferHandle &ForecastThreadHandle, HttpTransfers &http, StatusLine &status)
{
    if (ForecastThreadHandle == 0)
        return false;
    const bool received = ApplyReply(forecast, profile, ForecastThreadHandle, http, status);
    http.Net_HTTPThreadClose(std::exchange(ForecastThreadHandle, 0));
    return received;
}

ForecastPoll PollForecast(ForecastState &forecast, ForecastProfile &profile,
                          TransferHandle &ForecastThreadHandle, HttpTransfers &http,
                          StatusLine &status)
{
    if (!http.Net_HTTPThreadIsDone(ForecastThreadHandle))
        return ForecastPoll::Waiting;
    ReceiveForecast(forecast, profile, ForecastThreadHandle, http, status);
    return forecast.received ? ForecastPoll::ShowAndSave : ForecastPoll::RequestAgain;
}
