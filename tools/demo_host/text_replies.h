#pragma once

#include "demo_host/day_weather.h"

#include <QDateTime>
#include <QString>

/// The decoded airport report of `station` at the moment `utc`: lines of "name: value" that end in
/// LF. What the station does not report has no line.
[[nodiscard]] QString DecodedReport(const Station &station, const QDateTime &utc);

/// The current observation of `station` at the moment `utc` as XML, with CR LF and LF line ends
/// and tabs. What the station does not report has no element.
[[nodiscard]] QString CurrentObservation(const Station &station, const QDateTime &utc);

/// The page for an address that names nothing.
[[nodiscard]] QString NotFoundPage(const QString &address);
