#include "store/windows_1252.h"

#include <algorithm>
#include <array>

namespace {

constexpr char16_t kFirst = 0x80; // below it and from 0xA0 on, code and character are the same

/// The characters of the codes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> kMiddle{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsMiddle(char16_t code)
{
    return code >= kFirst && code < kFirst + kMiddle.size();
}

char16_t CodeOf(char16_t character)
{
    if (character <= 0xFF && !IsMiddle(character))
        return character;
    const auto *const found = std::find(kMiddle.begin(), kMiddle.end(), character);
    if (found == kMiddle.end())
        return u'?';
    return static_cast<char16_t>(kFirst + (found - kMiddle.begin()));
}

} // namespace

QString FromWindows1252(QStringView units)
{
    QString text = units.toString();
    for (QChar &c : text) {
        if (IsMiddle(c.unicode()))
            c = QChar(kMiddle[static_cast<std::size_t>(c.unicode() - kFirst)]);
    }
    return text;
}

QString ToWindows1252(QStringView text)
{
    QString units;
    units.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        units.append(QChar(CodeOf(text[i].unicode())));
        if (pair)
            ++i; // one character, one question mark
    }
    return units;
}
