#pragma once

#include <QString>
#include <QStringView>

/// `text` prepared for use inside a request URL: cut at the first NUL, trimmed of outer spaces,
/// then with seventeen characters escaped ("%" and `@+ ;<>~^\[]{}|"` with the grave accent).
///
/// An existing escape of one of these seventeen, in capital hexadecimal digits, is kept, so that a
/// half-encoded text survives. Everything else is left alone, non-ASCII included.
[[nodiscard]] QString UrlEncode(QStringView text);
