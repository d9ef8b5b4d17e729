#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The charset parameter of a Content-Type value, in lower case and without quotes; empty if it has
/// none.
[[nodiscard]] QByteArray CharsetOfContentType(QByteArrayView contentType);

/// The encoding that an XML declaration at the very beginning of `body`, or an HTML meta tag in its
/// first 1024 bytes, declares, in lower case; empty if there is none. Tags inside comments do not
/// count.
[[nodiscard]] QByteArray CharsetOfHead(QByteArrayView body);
