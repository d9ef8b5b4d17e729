#pragma once

#include <QString>
#include <QStringView>

/// `text` made fit to stand inside a request URL: cut at the first NUL, freed of outer spaces,
/// then seventeen characters escaped ("%" and `@+ ;<>~^\[]{}|"` with the grave accent).
///
/// An escape of one of these seventeen that is already there, in capital hexadecimal digits, stays,
/// so that a half-encoded text survives. Everything else is left alone, non-ASCII included.
[[nodiscard]] QString UrlEncode(QStringView text);
