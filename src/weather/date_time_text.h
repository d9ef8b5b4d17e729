#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

/// A date and time without a zone, in seconds since midnight of 30 December 1899. A time without a
/// date lies in that first day.
struct Moment
{
    qint64 seconds = 0;

    [[nodiscard]] bool operator==(const Moment &) const = default;
};

/// The moment that `text` denotes as US English date-time text: "11/5/2019 9:07 PM",
/// "2019-11-05 21:07", "Nov 5, 2019, 9:07 PM", "5-Nov-2019", "9:07PM" and their likes; month names
/// in English whatever the system's language.
///
/// @param currentYear stands in where day and month come without a year.
/// @return nothing when the text is none, such as ISO texts with a "T", zones or week days.
[[nodiscard]] std::optional<Moment> ParseDateTime(QStringView text, int currentYear);

/// True when the year of `moment` has four digits (0001..9999), as a text of a moment needs.
[[nodiscard]] bool IsWritable(Moment moment);

/// `M/d/yyyy h:mm:ss AM/PM` of a moment that IsWritable(), without leading zeros in month, day and
/// hour, but four digits in the year. The time is left out at midnight, the date for a moment
/// without one.
[[nodiscard]] QString DateTimeText(Moment moment);

/// The clock's `dateTime` as a moment, cut to whole seconds: no second, and no day, is told before
/// it has come.
[[nodiscard]] Moment ToMoment(const QDateTime &dateTime);
