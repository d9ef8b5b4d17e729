#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The charset parameter of a Content-Type value, in small letters and without quotes; empty when
/// it has none.
[[nodiscard]] QByteArray CharsetOfContentType(QByteArrayView contentType);

/// The encoding that an XML declaration at the very beginning of `body`, or an HTML meta tag in its
/// first 1024 bytes, declares, in small letters; empty when there is none. Tags inside comments do
/// not count.
[[nodiscard]] QByteArray CharsetOfHead(QByteArrayView body);
