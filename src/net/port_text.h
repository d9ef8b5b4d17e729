#pragma once

#include <QStringView>

/// True when `port` is a whole number from 1 to 65535 in plain ASCII digits: no sign, no blank;
/// leading zeros do not matter.
[[nodiscard]] bool IsPort(QStringView port);
