#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <array>

/// A state of the demo host: how its office words forecasts and what the weather is like.
struct ForecastState
{
    QStringView code = {};      ///< Two capital letters.
    int zoneCount = 0;          ///< Number of its own zones, which are numbered from 1.
    QStringView neighbour = {}; ///< State whose first zones are listed among its own.
    QStringView office = {};    ///< Four capital letters.
    QStringView officeName = {};
    int utcOffsetMinutes = 0;  ///< Of its local time, the whole year.
    QStringView timeZone = {}; ///< The name of that time.
    int highF = 0;             ///< Highest temperature of a mean day, degrees Fahrenheit.
    int lowF = 0;              ///< Lowest temperature of a mean night.
    bool capitals = false;     ///< Writes forecasts as in the days of the teleprinter.
};

/// One zone and the peculiarities of its file.
struct ForecastZone
{
    const ForecastState *state = nullptr; ///< Where it is listed; must outlive the zone.
    int number = 0;                       ///< 1..999.
    QString code = {};                    ///< "MDZ011".
    QString fileName = {};                ///< "mdz011.txt", in capitals for some.
    QString segment = {};                 ///< The zones that the text is for, this one first.
    QString names = {};                   ///< Lines with the places, each ended by LF.
    int ageDays = 0;                      ///< Of its row; -1: dated by a clock that is ahead.
    bool hasHeadline = false;             ///< A hazard is announced.
    bool endsInTable = false;             ///< A table follows after "&&".
    bool hasEndMark = true;               ///< "$$" ends the product.
};

/// All states of the host.
[[nodiscard]] const std::array<ForecastState, 3> &ForecastStates();

/// The state with that code, in lower case as in addresses; null if there is none.
[[nodiscard]] const ForecastState *FindForecastState(QStringView code);

/// Everything in the state's folder, in the order of its listing: zones of the state, some of them
/// stale or with a name in capitals, and zones of its neighbour.
[[nodiscard]] QList<ForecastZone> ForecastZones(const ForecastState &state);

/// Breaks a text into lines of at most 66 characters, at blanks and after "...". The last line has
/// no line end.
[[nodiscard]] QString Wrapped(const QString &text);
