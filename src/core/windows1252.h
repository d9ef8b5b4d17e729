#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// `bytes` read as Windows-1252, one character a byte.
///
/// The five bytes that the code page leaves undefined (81, 8D, 8F, 90, 9D) become the control
/// character of the same number, so that every text of bytes survives the way there and back.
[[nodiscard]] QString FromWindows1252(QByteArrayView bytes);

/// `text` as Windows-1252. A character that the code page lacks becomes one `?`; a surrogate pair
/// is one character, a lone surrogate too.
/// @param lossy set to true when a `?` had to be put in, else left as it is; may be null.
[[nodiscard]] QByteArray ToWindows1252(QStringView text, bool *lossy = nullptr);
