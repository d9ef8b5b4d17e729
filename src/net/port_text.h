#pragma once

#include <QString>
#include <QStringView>

/// True if `port` is a whole number from 1 to 65535 in plain ASCII digits: no sign, no blank;
/// leading zeros do not matter.
[[nodiscard]] bool IsPort(QStringView port);

/// What replaces "%PORT%" in an address template: nothing for exactly "80", else ":" and the text,
/// whether it is a port or not.
[[nodiscard]] QString PortSuffix(const QString &port);
