#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

/// A date and time without a zone, in seconds since midnight of 30 December 1899. A time without a
/// date falls on that day.
struct Moment
{
    qint64 seconds = 0;

    [[nodiscard]] bool operator==(const Moment &) const = default;
};

/// Parses US English date-time text such as "11/5/2019 9:07 PM", "2019-11-05 21:07", "5-Nov-2019",
/// "Nov 5, 2019, 9:07 PM" or "9:07PM". Month names are English whatever the system's language.
///
/// @param currentYear used if the text has a day and month but no year.
/// @return nothing for any other text, such as ISO texts with a "T", or with a zone or a weekday.
[[nodiscard]] std::optional<Moment> ParseDateTime(QStringView text, int currentYear);

/// True when the year of `moment` is 0001..9999, as DateTimeText() needs it.
[[nodiscard]] bool IsWritable(Moment moment);

/// `M/d/yyyy h:mm:ss AM/PM` for a moment that IsWritable(): no leading zeros in month, day and
/// hour, four digits in the year. The time is omitted at midnight, the date if the moment has none.
[[nodiscard]] QString DateTimeText(Moment moment);

/// The clock's `dateTime` as a moment, truncated to whole seconds, so that no second and no day
/// shows before it has begun.
[[nodiscard]] Moment ToMoment(const QDateTime &dateTime);
