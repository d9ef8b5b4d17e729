#pragma once

#include <QString>

/// A remaining time in `seconds` (0 or more): "M:SS" below one hour, "H:MM:SS" from there on.
[[nodiscard]] QString CountdownText(int seconds);
