#pragma once

#include <QString>

/// A time still to wait, in seconds from 0 on: "M:SS" below one hour, else "H:MM:SS".
[[nodiscard]] QString CountdownText(int seconds);
