#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QStringView>

/// `date` as the forecast host's listings write it: "16-Nov-2026", in English whatever the system's
/// language.
[[nodiscard]] QString ListingDate(QDate date);

/// The names of the zone files ("mdz011.txt") in a directory listing, in its order.
///
/// A row counts if its link begins with `state` and "z", if it contains the date of `today`, of
/// one of the two days before or of the day after, and if the name ends within its first eighteen
/// characters. Older rows are stale; tomorrow's come from clocks that are ahead of this one.
///
/// Takes time linear in the size of the listing.
/// @param state the state code in lower case.
[[nodiscard]] QStringList ZoneFileNames(QStringView listing, const QString &state, QDate today);
