#pragma once

#include "profiles/weather_profile.h"

#include <QString>
#include <QStringView>

#include <optional>

/// Checks that a reply has every value that the profile requires: both tags, and between them (as
/// GetNodeValue() would cut it, before suffix and factor) a digit, or any character for conditions,
/// wind direction, time and location.
///
/// A missing temperature would otherwise read 0.0 on air and enter the min/max store.
///
/// @param working the reply, cut to the profile's main node.
/// @return the key stem of the first value that is missing; nothing if none is.
[[nodiscard]] std::optional<QString> MissingRequiredValue(WeatherProfile &profile,
                                                          QStringView working);
