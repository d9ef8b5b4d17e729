#include "demo_host/zone_rows.h"

#include "demo_host/zone_product.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// When the file was last stored, by the clock that stored it. UTC.
QDateTime StoreTime(const ForecastZone &zone, const QDateTime &utc)
{
    const QDateTime stored = IssueTime(zone, utc).toUTC();
    return zone.ageDays < 0 ? stored.addDays(-zone.ageDays) : stored;
}

QString Row(const ForecastZone &zone, const QDateTime &utc)
{
    const double kilobytes = double(ZoneProduct(zone, utc).size()) / 1024;
    return u"<tr><td><a href=\"%1\">%1</a></td><td align=\"right\">%2  </td>"
           "<td align=\"right\">%3K</td></tr>\n"_s.arg(
               zone.fileName, QLocale::c().toString(StoreTime(zone, utc), u"dd-MMM-yyyy hh:mm"_s),
               QString::number(kilobytes, 'f', 1));
}

} // namespace

QString ZoneListingPage(const ForecastState &state, const QDateTime &utc)
{
    const QString title = u"Index of /data/forecasts/zone/"_s + state.code.toString().toLower();
    QString page = u"<!DOCTYPE HTML>\n<html><head><title>%1</title></head>\n<body>\n<h1>%1</h1>\n"
                   "<table>\n<tr><th>Name</th><th>Last modified</th><th>Size</th></tr>\n"
                   "<tr><td><a href=\"/data/forecasts/zone/\">Parent Directory</a></td>"
                   "<td>&nbsp;</td><td align=\"right\">  - </td></tr>\n"_s.arg(title);
    for (const ForecastZone &zone : ForecastZones(state))
        page += Row(zone, utc);
    return page + u"</table>\n</body></html>\n"_s;
}

std::optional<QString> ZoneFile(const ForecastState &state, QStringView fileName,
                                const QDateTime &utc)
{
    const QList<ForecastZone> zones = ForecastZones(state);
    const auto found = std::ranges::find(zones, fileName, &ForecastZone::fileName);
    if (found == zones.end())
        return {};
    return ZoneProduct(*found, utc);
}
