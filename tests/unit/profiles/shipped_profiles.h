#pragma once

#include "profiles/profile_file.h"
#include "profiles/weather_profile.h"
#include "support/read_weather.h"

#include <QString>
#include <QStringList>

#include <cstddef>

/// The shipped profiles.
[[nodiscard]] IniPath ShippedProfileFile();
[[nodiscard]] const ProfileTable &ShippedProfiles();

/// What became of a reply.
struct Outcome
{
    bool parsed = false;
    QString values = {};     ///< One line for each value field, as Lines() gives them.
    QStringList pieces = {}; ///< Values other than the time that hold a piece of the reply's form.
    QStringList statuses = {};
    QList<double> temps = {}; ///< Readings that went to the min/max store.
};

/// Parses `reply` with the shipped profile of this number; location 1 is "HERE", the clock shows 5
/// March 2026, 6:07:08 AM, one hour ahead of UTC, and the min/max store is neutral.
[[nodiscard]] Outcome Parse(std::size_t index, const QString &reply);

/// The value fields as text, one `name=value` per line in the record's order.
[[nodiscard]] QString Lines(const WeatherValues &values);

/// What the parser shows if the reply names no place and no time.
inline constexpr QStringView kEnteredPlace = u"HERE";
inline constexpr QStringView kClockTime = u"3/5/2026 6:07:08 AM";

inline constexpr QStringView kNone = u"N/A";
inline constexpr QStringView kNotDelivered = u"Not Available From Service";

/// Values of a profile whose service delivers nothing: all "N/A" except those that never depend on
/// the reply. `unit` is " F" or " C".
[[nodiscard]] WeatherValues NothingKnown(const QString &unit);

/// `text` without the lines that contain `piece`.
[[nodiscard]] QString WithoutLine(const QString &text, const QString &piece);
