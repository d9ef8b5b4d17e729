#include "core/windows1252.h"

#include "core/text.h"

#include <algorithm>
#include <array>

namespace {

constexpr unsigned kFirst = 0x80; // only the bytes 80..9F differ from ISO 8859-1
constexpr unsigned kEnd = 0xA0;

constexpr std::array<char16_t, kEnd - kFirst> kTable = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80..87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88..8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90..97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98..9F
};

char16_t Decoded(unsigned char byte)
{
    return byte >= kFirst && byte < kEnd ? kTable[byte - kFirst] : char16_t(byte);
}

/// The byte of `unit`, or -1 if the code page has none.
int Encoded(char16_t unit)
{
    if (unit < kFirst || (unit >= kEnd && unit <= 0xFF))
        return unit;
    const auto *const found = std::find(kTable.begin(), kTable.end(), unit);
    return found == kTable.end() ? -1 : int(kFirst) + int(found - kTable.begin());
}

} // namespace

QString FromWindows1252(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return QChar(Decoded(static_cast<unsigned char>(byte))); });
    return text;
}

QByteArray ToWindows1252(QStringView text, bool *lossy)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int byte = Encoded(text[i].unicode());
        if (byte >= 0) {
            bytes.append(static_cast<char>(byte));
            continue;
        }
        bytes.append('?');
        if (lossy != nullptr)
            *lossy = true;
        if (IsPairAt(text, i))
            ++i;
    }
    return bytes;
}
