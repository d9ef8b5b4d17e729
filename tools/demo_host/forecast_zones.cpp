#include "demo_host/forecast_zones.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLineLength = 66;

constexpr std::array<ForecastState, 3> kStates{{
    {.code = u"MD",
     .zoneCount = 25,
     .neighbour = u"DC",
     .office = u"KDMA",
     .officeName = u"Demo Host Office Harbor Point MD",
     .utcOffsetMinutes = -300,
     .timeZone = u"EST",
     .highF = 64,
     .lowF = 43},
    {.code = u"WA",
     .zoneCount = 30,
     .neighbour = u"OR",
     .office = u"KDMB",
     .officeName = u"Demo Host Office Cedar Sound WA",
     .utcOffsetMinutes = -480,
     .timeZone = u"PST",
     .highF = 55,
     .lowF = 41,
     .capitals = true},
    {.code = u"TX",
     .zoneCount = 130,
     .neighbour = u"OK",
     .office = u"KDMC",
     .officeName = u"Demo Host Office Dry Creek TX",
     .utcOffsetMinutes = -360,
     .timeZone = u"CST",
     .highF = 81,
     .lowF = 60},
}};

constexpr std::array<QStringView, 13> kTownBegins{u"Ash",   u"Birch", u"Cold", u"Deer", u"Elm",
                                                  u"Fox",   u"Green", u"High", u"Lake", u"Maple",
                                                  u"North", u"Stone", u"Wind"};
constexpr std::array<QStringView, 11> kTownEnds{u"bridge", u"brook", u"dale", u"field",
                                                u"ford",   u"haven", u"mont", u"port",
                                                u"ton",    u"view",  u"wood"};
constexpr std::array<QStringView, 4> kCountyBegins{u"Northern", u"Southern", u"Eastern",
                                                   u"Western"};

/// Different for all indexes below 143, because the lists' lengths have no common factor.
QString Town(int index)
{
    return u"%1%2"_s.arg(kTownBegins[std::size_t(index) % kTownBegins.size()],
                         kTownEnds[std::size_t(index) % kTownEnds.size()]);
}

QString County(int number)
{
    const QStringView begin = kCountyBegins[std::size_t(number) % kCountyBegins.size()];
    return u"%1 %2 County"_s.arg(begin, Town(number * 3));
}

QString ZoneCode(QStringView state, int number)
{
    return u"%1Z%2"_s.arg(state).arg(number, 3, 10, QChar(u'0'));
}

/// Whether the zone shares its text with the next one of its state.
bool IsShared(const ForecastState &state, int number)
{
    return state.capitals && number % 3 == 0;
}

/// The lines with the county, or counties, and the towns.
QString Names(const ForecastState &state, int number)
{
    QString counties = County(number) + u'-';
    if (IsShared(state, number))
        counties += County(number + 1) + u'-';
    const int first = number * 5;
    const QString towns = u"Including the cities of %1, %2, %3, %4, and %5"_s.arg(
        Town(first), Town(first + 1), Town(first + 2), Town(first + 3), Town(first + 4));
    if (!state.capitals)
        return counties + u'\n' + Wrapped(towns) + u'\n';
    QString old = towns.toUpper();
    old.replace(u" OF "_s, u" OF..."_s).replace(u", "_s, u"..."_s);
    return counties.toUpper() + u'\n' + Wrapped(old) + u'\n';
}

/// Most files are from today. Every eighth is long dead; some of the others were last renewed on
/// one of the days before, and some were stored by a clock that is ahead of this one.
int AgeDays(int number)
{
    if (number % 8 == 0)
        return number % 3 == 0 ? 1000 : 3;
    switch (number % 10) {
    case 3:
        return 1;
    case 6:
        return 2;
    case 9:
        return -1;
    default:
        return 0;
    }
}

ForecastZone Zone(const ForecastState &state, QStringView owner, int number)
{
    const QString code = ZoneCode(owner, number);
    ForecastZone zone{.state = &state,
                      .number = number,
                      .code = code,
                      .fileName = code.toLower() + u".txt"_s,
                      .segment = code,
                      .names = Names(state, number),
                      .ageDays = AgeDays(number)};
    if (IsShared(state, number))
        zone.segment += u"-%1"_s.arg(number + 1, 3, 10, QChar(u'0'));
    zone.hasHeadline = number % 6 == 5;
    zone.endsInTable = state.capitals && number % 5 == 0;
    zone.hasEndMark = state.capitals || number % 4 != 0;
    return zone;
}

} // namespace

const std::array<ForecastState, 3> &ForecastStates()
{
    return kStates;
}

const ForecastState *FindForecastState(QStringView code)
{
    const auto *found = std::ranges::find_if(kStates, [&](const ForecastState &state) {
        return state.code.toString().toLower() == code;
    });
    return found == kStates.end() ? nullptr : found;
}

QList<ForecastZone> ForecastZones(const ForecastState &state)
{
    constexpr int kNeighbourZones = 2;
    QList<ForecastZone> zones;
    for (int number = 1; number <= kNeighbourZones; ++number)
        zones.append(Zone(state, state.neighbour, number));
    for (int number = 1; number <= state.zoneCount; ++number)
        zones.append(Zone(state, state.code, number));
    // Stored a second time by somebody who wrote the name in capitals.
    ForecastZone capitals = zones.last();
    capitals.fileName = capitals.fileName.toUpper();
    zones.append(capitals);
    std::ranges::sort(zones, {}, &ForecastZone::fileName);
    return zones;
}

QString Wrapped(const QString &text)
{
    QString lines;
    QStringView rest = text;
    while (rest.size() > kLineLength) {
        // A blank at the break is dropped; dots stay on the line that they end.
        const qsizetype blank = rest.lastIndexOf(u' ', kLineLength);
        const qsizetype dots = rest.first(kLineLength).lastIndexOf(u"...");
        const qsizetype end = std::max(blank, dots <= 0 ? -1 : dots + 3);
        if (end <= 0)
            break;
        lines.append(rest.first(end)).append(u'\n');
        rest = rest.sliced(rest[end] == u' ' ? end + 1 : end);
    }
    return lines.append(rest);
}
