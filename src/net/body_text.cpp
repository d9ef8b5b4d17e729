#include "net/body_text.h"

#include "core/text.h"
#include "core/windows1252.h"
#include "net/declared_charset.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace {

constexpr QByteArrayView kUtf8Mark = "\xEF\xBB\xBF";
constexpr QByteArrayView kUtf16LittleMark = "\xFF\xFE";
constexpr QByteArrayView kUtf16BigMark = "\xFE\xFF";

/// Reads UTF-16; a single byte left over at the end becomes U+FFFD.
QString FromUtf16(QByteArrayView bytes, QStringConverter::Encoding encoding)
{
    const bool oneTooMany = bytes.size() % 2 != 0;
    QStringDecoder decoder(encoding);
    QString text = decoder.decode(bytes.first(bytes.size() - (oneTooMany ? 1 : 0)));
    if (oneTooMany)
        text.append(QChar(QChar::ReplacementCharacter));
    return text;
}

std::optional<QString> FromMarked(QByteArrayView bytes)
{
    if (bytes.startsWith(kUtf8Mark))
        return QString::fromUtf8(bytes);
    if (bytes.startsWith(kUtf16LittleMark))
        return FromUtf16(bytes, QStringConverter::Utf16LE);
    if (bytes.startsWith(kUtf16BigMark))
        return FromUtf16(bytes, QStringConverter::Utf16BE);
    return std::nullopt;
}

bool IsOneOf(const QByteArray &name, std::initializer_list<QByteArrayView> names)
{
    return std::find(names.begin(), names.end(), QByteArrayView(name)) != names.end();
}

/// Any other encoding, if Qt knows it.
std::optional<QString> FromOther(QByteArrayView bytes, const QByteArray &charset)
{
    // Names for "whatever this machine uses" say nothing about a reply.
    if (IsOneOf(charset, {"locale", "system"}))
        return std::nullopt;
    QStringDecoder decoder(charset.constData());
    if (!decoder.isValid())
        return std::nullopt;
    return QString(decoder.decode(bytes));
}

/// @param charset in lower case; empty: none was named.
/// @return nothing if the name is unknown.
std::optional<QString> FromCharset(QByteArrayView bytes, const QByteArray &charset)
{
    if (charset.isEmpty())
        return std::nullopt;
    if (IsOneOf(charset, {"utf-8", "utf8"}))
        return QString::fromUtf8(bytes);
    if (IsOneOf(charset, {"iso-8859-1", "iso8859-1", "iso_8859-1", "latin1", "latin-1",
                          "windows-1252", "cp1252", "us-ascii", "ascii"}))
        return FromWindows1252(bytes);
    if (charset == "utf-16be")
        return FromUtf16(bytes, QStringConverter::Utf16BE);
    if (charset == "utf-16" && bytes.startsWith(kUtf16BigMark))
        return FromUtf16(bytes, QStringConverter::Utf16BE);
    if (IsOneOf(charset, {"utf-16le", "utf-16"}))
        return FromUtf16(bytes, QStringConverter::Utf16LE);
    return FromOther(bytes, charset);
}

/// What the head declares. It was readable byte by byte, so it cannot be UTF-16, whatever it says.
QByteArray HeadCharset(QByteArrayView bytes)
{
    QByteArray charset = CharsetOfHead(bytes);
    return charset.startsWith("utf-16") ? QByteArray("utf-8") : charset;
}

/// The decoded text, which may contain lone surrogates.
QString DecodedText(const QByteArray &body, QByteArrayView contentType)
{
    if (auto text = FromCharset(body, CharsetOfContentType(contentType)))
        return *std::move(text);
    if (auto text = FromMarked(body))
        return *std::move(text);
    if (auto text = FromCharset(body, HeadCharset(body)))
        return *std::move(text);
    return body.isValidUtf8() ? QString::fromUtf8(body) : FromWindows1252(body);
}

} // namespace

QString BodyText(const QByteArray &body, QByteArrayView contentType)
{
    return WithoutLoneSurrogates(DecodedText(body, contentType));
}
