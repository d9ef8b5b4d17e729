#pragma once

#include "demo_host/day_weather.h"

#include <QDateTime>
#include <QMap>
#include <QString>

#include <optional>

/// The part of an address after the "?", with names and values unescaped.
using AddressQuery = QMap<QString, QString>;

/// Current values by position on one line, in Open-Meteo's form: those that `query` requests under
/// "current" and "daily", in that order and in the requested units. The station nearest to the
/// position answers.
/// @return nothing if the position or a quantity is invalid; the service then answers 400.
[[nodiscard]] std::optional<QString> PositionReply(const AddressQuery &query, const QDateTime &utc);

/// The latest observation of a station in api.weather.gov's form, indented; what the station does
/// not report is null.
[[nodiscard]] QString ObservationJson(const Station &station, const QDateTime &utc);

/// The weather of a place in wttr.in's form, indented. The service always reports everything,
/// whatever the station lacks.
[[nodiscard]] QString PlaceReply(const Station &station, const QDateTime &utc);

/// The station with that code, or the first whose name begins with `place`; null: none.
[[nodiscard]] const Station *FindPlace(QStringView place);
