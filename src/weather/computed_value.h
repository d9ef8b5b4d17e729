#pragma once

#include "profiles/quantity.h"

#include <QString>
#include <QStringView>

/// Whether a units text holds a token such as "%WCF%" that asks for `quantity` to be computed:
/// wind chill, heat index and dew point have one for each scale.
[[nodiscard]] bool IsComputed(Quantity quantity, QStringView units);

/// The computed quantity: `units` with its token replaced by the number, to one decimal. If `units`
/// holds both tokens, the one for Fahrenheit counts.
///
/// @param temperature text that begins with a number, in the token's scale.
/// @param other       likewise: wind speed (mph or km/h) for the wind chill, relative humidity in
///                    percent for the other two.
/// @return "N/A" where the quantity does not apply.
[[nodiscard]] QString ComputedValue(Quantity quantity, const QString &units,
                                    QStringView temperature, QStringView other);
