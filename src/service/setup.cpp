#include "service/setup.h"

#include "core/text.h"
#include "forecast/forecast_location.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kProducts{Product::Weather, Product::Forecast};

/// The keys of the locations that the selected profile uses and nobody has filled in.
QStringList MissingLocations(const Station &station)
{
    QStringList keys;
    for (std::size_t i = 0; i < station.LocationTexts().size(); ++i) {
        if (station.UsesLocation(i) && TrimSpaces(station.LocationTexts()[i]).isEmpty())
            keys.append(u"location%1"_s.arg(i + 1));
    }
    return keys;
}

/// The locations that the selected profile uses.
QString Locations(const Station &station)
{
    QStringList texts;
    for (std::size_t i = 0; i < station.LocationTexts().size(); ++i) {
        if (station.UsesLocation(i))
            texts.append(station.LocationTexts()[i]);
    }
    return texts.join(u", "_s);
}

Setup WeatherSetup(const Station &station)
{
    const WeatherProfile *profile = station.Profiles().Selected();
    const QString profiles = station.Files().Profiles().path;
    if (profile == nullptr)
        return {.missing = u"there is no profile in "_s + profiles};
    const QString section = u"Profile%1"_s.arg(station.Profiles().currentWeatherProfile);
    if (profile->title.isEmpty())
        return {.missing = u"there is no %1 in %2"_s.arg(section, profiles)};
    if (profile->baseURL.isEmpty())
        return {.missing = u"%1 in %2 has no baseURL"_s.arg(section, profiles)};
    const QStringList missing = MissingLocations(station);
    if (!missing.isEmpty()) {
        return {.missing =
                    u"%1 of %2 (%3) in %4"_s.arg(missing.join(u", "_s), section, profile->title,
                                                 station.Files().Settings().path)};
    }
    return {.isFor = profile->title + u", "_s + Locations(station)};
}

Setup ForecastSetup(const Station &station)
{
    const Settings &settings = station.CurrentSettings();
    if (IsForecastLocationGiven(settings.ForecastState, settings.ForecastZone))
        return {.isFor = u"zone %1, state %2"_s.arg(settings.ForecastZone, settings.ForecastState)};
    QStringList keys;
    if (TrimSpaces(settings.ForecastState).isEmpty())
        keys.append(u"ForecastState"_s);
    if (TrimSpaces(settings.ForecastZone).isEmpty())
        keys.append(u"ForecastZone"_s);
    return {.missing = keys.join(u", "_s) + u" in "_s + station.Files().Settings().path};
}

} // namespace

QString NameOf(Product product)
{
    return product == Product::Weather ? u"weather"_s : u"forecast"_s;
}

Setup SetupOf(Product product, const Station &station)
{
    return product == Product::Weather ? WeatherSetup(station) : ForecastSetup(station);
}

QString SetupReport(const Station &station)
{
    QString report;
    for (const Product product : kProducts) {
        const Setup setup = SetupOf(product, station);
        const QString found =
            setup.IsComplete() ? u"set up: "_s + setup.isFor : u"missing: "_s + setup.missing;
        report += NameOf(product) + u": "_s + found + u'\n';
    }
    return report;
}

bool IsAnythingSetUp(const Station &station)
{
    return std::ranges::any_of(
        kProducts, [&](Product product) { return SetupOf(product, station).IsComplete(); });
}
