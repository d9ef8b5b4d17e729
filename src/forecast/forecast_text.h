#pragma once

#include <QString>
#include <QStringView>

/// A zone forecast as it is shown and aired: what is between the zone's header line and the end of
/// the product, one paragraph per period, in lines that end in CR LF.
///
/// Takes time linear in the length of the text, whatever it holds.
///
/// @param product  the text as received, without outer spaces.
/// @param zoneCode the zone asked for, in any case. If it does not occur in capital letters, the
///                 line of the sixth character counts as the header line.
[[nodiscard]] QString CleanForecast(QStringView product, const QString &zoneCode);
