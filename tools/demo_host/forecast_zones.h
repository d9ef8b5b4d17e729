#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <array>

/// A state of the demo host: how its office words forecasts and what the weather is like.
struct ForecastState
{
    QStringView code = {};      ///< Two capital letters.
    int zoneCount = 0;          ///< Zones of its own, numbered from 1.
    QStringView neighbour = {}; ///< State whose first zones are listed among its own.
    QStringView office = {};    ///< Four capital letters.
    QStringView officeName = {};
    int utcOffsetMinutes = 0;  ///< Of its local time, the whole year.
    QStringView timeZone = {}; ///< What that time is called.
    int highF = 0;             ///< Highest temperature of a mean day, degrees Fahrenheit.
    int lowF = 0;              ///< Lowest of a mean night.
    bool capitals = false;     ///< Words forecasts as in the days of the teleprinter.
};

/// One zone and what is peculiar about its file.
struct ForecastZone
{
    const ForecastState *state = nullptr; ///< Where it is listed; outlives the zone.
    int number = 0;                       ///< 1..999.
    QString code = {};                    ///< "MDZ011".
    QString fileName = {};                ///< "mdz011.txt", in capitals for some.
    QString segment = {};                 ///< The zones that the text is for, this one first.
    QString names = {};                   ///< Lines with the places, each ended by LF.
    int ageDays = 0;                      ///< Of its row; -1: dated by a clock ahead.
    bool hasHeadline = false;             ///< A hazard is announced.
    bool endsInTable = false;             ///< A table follows behind "&&".
    bool hasEndMark = true;               ///< "$$" ends the product.
};

/// All states of the host.
[[nodiscard]] const std::array<ForecastState, 3> &ForecastStates();

/// The state of that code, in lower case as addresses have it; null when there is none.
[[nodiscard]] const ForecastState *FindForecastState(QStringView code);

/// Everything that the state's folder holds, in the order of its listing: zones of the state, some
/// of them stale or with a name in capitals, and of its neighbour.
[[nodiscard]] QList<ForecastZone> ForecastZones(const ForecastState &state);

/// Breaks a text into lines of 66 characters at most, at blanks and behind "...". The last line has
/// no end.
[[nodiscard]] QString Wrapped(const QString &text);
