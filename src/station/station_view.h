#pragma once

#include "core/status_line.h"

/// What a station keeps up to date, each in one output file.
enum class Product
{
    Weather,
    Forecast,
};

/// How a request for a product ended, including its file.
struct ProductEnd
{
    Product product = Product::Weather;
    QString failure = {}; ///< Why the file has nothing new, in words; empty: it has.
};

/// Is told what the station does: the window, a test, or nobody. The station calls it on its own
/// thread when something has changed; the view then asks the station for what it is now.
class StationView : public StatusLine
{
public:
    virtual void WeatherChanged() = 0;    ///< The shown weather has changed or been emptied.
    virtual void ForecastChanged() = 0;   ///< There is a forecast text to show.
    virtual void ProfilesChanged() = 0;   ///< Another profile is selected, or the same one again.
    virtual void CountdownsChanged() = 0; ///< The words for the next requests have changed.
    virtual void RequestStarted() = 0;    ///< Current weather is about to be requested.

    /// The weather service's reply as received, whatever comes of it.
    virtual void RawReply(const QString &text) = 0;

    virtual void Ended(const ProductEnd & /*end*/) {} ///< A request that was not given up.

    /// The text of a transfer of zone codes that somebody waits for.
    virtual void ZoneCodes(const QString &text) = 0;
};
