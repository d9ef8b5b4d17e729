#include "net/url_encode.h"

#include "core/text.h"

namespace {

constexpr QStringView kEscaped = u"%@+ ;<>~^`\\[]{}|\"";
static_assert(kEscaped.size() == 17);

constexpr qsizetype kEscapeLength = 3;
constexpr QStringView kDigits = u"0123456789ABCDEF";

/// The value of one hexadecimal digit, in upper case only; -1: none.
qsizetype DigitValue(QChar digit)
{
    return kDigits.indexOf(digit);
}

/// True when `text` begins with an escape that UrlEncode() itself would make.
bool IsEscape(QStringView text)
{
    if (text.size() < kEscapeLength || text[0] != u'%')
        return false;
    const qsizetype high = DigitValue(text[1]);
    const qsizetype low = DigitValue(text[2]);
    return high >= 0 && low >= 0 && kEscaped.contains(QChar(char16_t(high * 16 + low)));
}

void AppendEscape(QString &encoded, QChar character)
{
    encoded.append(u'%');
    encoded.append(kDigits[character.unicode() / 16]);
    encoded.append(kDigits[character.unicode() % 16]);
}

} // namespace

QString UrlEncode(QStringView text)
{
    if (const qsizetype nul = text.indexOf(QChar(u'\0')); nul >= 0)
        text.truncate(nul);
    text = TrimSpaces(text);

    QString encoded;
    encoded.reserve(text.size() * kEscapeLength);
    for (qsizetype i = 0; i < text.size(); ++i) {
        // The digits of a kept escape are not escaped characters, so they are simply copied.
        if (!kEscaped.contains(text[i]) || IsEscape(text.sliced(i)))
            encoded.append(text[i]);
        else
            AppendEscape(encoded, text[i]);
    }
    return encoded;
}
