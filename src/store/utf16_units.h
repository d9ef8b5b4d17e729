#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

// The form in which the lines of a UTF-16 file are kept while the program works on them: ASCII is
// itself, every other unit has two or three bytes as in UTF-8, each unit by itself. Real UTF-8
// cannot encode half a surrogate pair, but a file's bytes must come out as they went in.

[[nodiscard]] QByteArray ToUnits(QStringView text);
[[nodiscard]] QString FromUnits(QByteArrayView bytes); ///< What ToUnits() made, or a part of it.

/// The same from and to UTF-16LE. An odd last byte is omitted.
[[nodiscard]] QByteArray UnitsFromUtf16Le(QByteArrayView bytes);
[[nodiscard]] QByteArray UnitsToUtf16Le(QByteArrayView units);
