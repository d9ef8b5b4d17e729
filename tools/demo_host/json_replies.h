#pragma once

#include "demo_host/day_weather.h"

#include <QDateTime>
#include <QMap>
#include <QString>

#include <optional>

/// The part of an address behind the "?", names and values without escapes.
using AddressQuery = QMap<QString, QString>;

/// Current values by position on one line, as Open-Meteo gives them: those that `query` asks for
/// under "current" and "daily", in that order and in the units that it asks for. The station
/// nearest to the position answers.
/// @return nothing when the position or a quantity is none; the service answers 400 then.
[[nodiscard]] std::optional<QString> PositionReply(const AddressQuery &query, const QDateTime &utc);

/// The latest observation of a station as api.weather.gov gives it, indented; what the station
/// does not report is null.
[[nodiscard]] QString ObservationJson(const Station &station, const QDateTime &utc);

/// The weather of a place as wttr.in gives it, indented. The service reports everything always,
/// whatever the station lacks.
[[nodiscard]] QString PlaceReply(const Station &station, const QDateTime &utc);

/// The station of that code, or the first whose name begins with `place`; null: none.
[[nodiscard]] const Station *FindPlace(QStringView place);
