#pragma once

#include <QString>
#include <QStringView>

/// Characters of Windows-1252 `units`, one character code 0..255 each. The five codes that it
/// leaves undefined stand for the control characters of the same number.
[[nodiscard]] QString FromWindows1252(QStringView units);

/// The Windows-1252 codes of `text`, one unit each; a character that has none becomes one "?".
[[nodiscard]] QString ToWindows1252(QStringView text);
