#pragma once

#include "profiles/weather_profile.h"

#include <QString>
#include <QStringView>

#include <optional>

/// Looks whether a reply has every value that the profile requires: both tags, and between them (as
/// GetNodeValue() would cut it, before suffix and factor) a digit; for conditions, wind direction,
/// time and location any character.
///
/// A missing temperature would otherwise read 0.0 on air and enter the min/max store.
///
/// @param working the reply, cut to the profile's main node.
/// @return the key stem of the first value that is not there; nothing when all are.
[[nodiscard]] std::optional<QString> MissingRequiredValue(WeatherProfile &profile,
                                                          QStringView working);
