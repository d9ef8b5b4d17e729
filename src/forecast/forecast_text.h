#pragma once

#include <QString>
#include <QStringView>

/// A zone forecast as it is shown and aired: what stands between the header line of the zone and
/// the end of the product, one paragraph per period, in lines that end in CR LF.
///
/// Works in time linear in the text, whatever it holds.
///
/// @param product  the text as received, without outer spaces.
/// @param zoneCode the zone asked for, in any case. Where it does not occur in capital letters, the
///                 header line is the one that the sixth character stands in.
[[nodiscard]] QString CleanForecast(QStringView product, const QString &zoneCode);
