#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// `bytes` read as Windows-1252, one character per byte.
///
/// The five bytes that the code page leaves undefined (81, 8D, 8F, 90, 9D) become the control
/// character of the same number, so that every sequence of bytes survives a round trip.
[[nodiscard]] QString FromWindows1252(QByteArrayView bytes);

/// `text` as Windows-1252. A character that the code page lacks becomes one `?`; a surrogate pair
/// is one character, and so is a lone surrogate.
/// @param lossy set to true if a `?` had to be inserted, otherwise left unchanged; may be null.
[[nodiscard]] QByteArray ToWindows1252(QStringView text, bool *lossy = nullptr);
