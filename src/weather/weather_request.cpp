#include "weather/weather_request.h"

#include "core/trace.h"
#include "net/port_text.h"
#include "net/url_encode.h"

#include <utility>

using namespace Qt::StringLiterals;

// The tokens are filled in one by one, so a location may contain a later token, which is then
// filled in, too. Only the first location is encoded; the others go in as they are.
QString RequestAddress(const WeatherProfile &profile, const QString &port)
{
    QString address = profile.baseURL;
    address.replace("%PORT%"_L1, PortSuffix(port));
    address.replace("%LOC1%"_L1, UrlEncode(profile.location[0]));
    address.replace("%LOC2%"_L1, profile.location[1]);
    address.replace("%LOC3%"_L1, profile.location[2]);
    address.replace("%LOC4%"_L1, profile.location[3]);
    return address;
}

bool RequestCurrentWeather(const WeatherProfile *profile, const QString &port,
                           TransferHandle &WeatherThreadHandle, HttpTransfers &http,
                           StatusLine &status)
{
    if (profile == nullptr || profile->baseURL.isEmpty())
        return false;

    if (WeatherThreadHandle != 0)
        http.Net_HTTPThreadClose(std::exchange(WeatherThreadHandle, 0));
    WeatherThreadHandle = http.Net_HTTPThreadOpen(port);
    if (WeatherThreadHandle == 0) {
        const QString where = " on port "_L1 + port + " for current weather"_L1;
        Trace(u"Unable to open HTTP handle", where);
        status.SetStatus("Unable to open request"_L1 + where); // users know no handles
        return false;
    }

    const QString address = RequestAddress(*profile, port);
    Trace(u"Request URL: ", address);
    status.SetStatus("Requesting Weather Data From URL: "_L1 + address);
    return http.Net_HTTPThreadGet(WeatherThreadHandle, address);
}
