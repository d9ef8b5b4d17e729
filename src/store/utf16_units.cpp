#include "store/utf16_units.h"

namespace {

constexpr unsigned kFirstOfTwoBytes = 0x80;
constexpr unsigned kFirstOfThreeBytes = 0x800;
constexpr unsigned kTwoBytes = 0xC0;
constexpr unsigned kThreeBytes = 0xE0;
constexpr unsigned kFollowing = 0x80;
constexpr unsigned kPayload = 0x3F;
constexpr unsigned kPayloadOfTwo = 0x1F;
constexpr unsigned kPayloadOfThree = 0x0F;
constexpr int kPayloadBits = 6;

} // namespace

QByteArray ToUnits(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const unsigned unit = c.unicode();
        if (unit < kFirstOfTwoBytes) {
            bytes.append(char(unit));
            continue;
        }
        if (unit < kFirstOfThreeBytes) {
            bytes.append(char(kTwoBytes | (unit >> kPayloadBits)));
        } else {
            bytes.append(char(kThreeBytes | (unit >> (2 * kPayloadBits))));
            bytes.append(char(kFollowing | ((unit >> kPayloadBits) & kPayload)));
        }
        bytes.append(char(kFollowing | (unit & kPayload)));
    }
    return bytes;
}

QString FromUnits(QByteArrayView bytes)
{
    QString text;
    text.reserve(bytes.size());
    unsigned unit = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const unsigned byte = uchar(bytes[i]);
        if (byte >= kThreeBytes)
            unit = byte & kPayloadOfThree;
        else if (byte >= kTwoBytes)
            unit = byte & kPayloadOfTwo;
        else if (byte >= kFollowing)
            unit = (unit << kPayloadBits) | (byte & kPayload);
        else
            unit = byte;
        const bool last = i + 1 == bytes.size() || (uchar(bytes[i + 1]) & kTwoBytes) != kFollowing;
        if (last)
            text.append(QChar(char16_t(unit)));
    }
    return text;
}

QByteArray UnitsFromUtf16Le(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(uchar(bytes[2 * i]), uchar(bytes[2 * i + 1]));
    return ToUnits(text);
}

QByteArray UnitsToUtf16Le(QByteArrayView units)
{
    const QString text = FromUnits(units);
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    for (const QChar c : text) {
        bytes.append(char(c.cell()));
        bytes.append(char(c.row()));
    }
    return bytes;
}
