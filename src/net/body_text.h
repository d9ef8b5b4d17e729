#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// A reply's body as text, every NUL kept.
///
/// The encoding is the first of these that is known: the charset of `contentType` (the header's
/// value, may be empty); a byte order mark, which is not part of the text; the encoding that an
/// XML declaration or an HTML meta tag names in the first 1024 bytes; UTF-8 if `body` is valid
/// UTF-8; else Windows-1252. ISO-8859-1 and US-ASCII are read as Windows-1252, as browsers do.
/// Bytes that are invalid in the chosen encoding become U+FFFD.
[[nodiscard]] QString BodyText(const QByteArray &body, QByteArrayView contentType);
