#include "core/text.h"

#include <cstdint>

using namespace Qt::StringLiterals;

namespace {

/// What a vector comparison gives for each character.
constexpr std::uint16_t AllBitsIf(bool holds)
{
    return std::uint16_t(-int(holds));
}

} // namespace

qsizetype IndexOf(QStringView text, QStringView needle, qsizetype from)
{
    constexpr qsizetype kBlock = 32;    // places checked in one round of vector steps
    constexpr qsizetype kWithSigns = 4; // a needle that may have a sign at each end

    const qsizetype places = text.size() - needle.size() + 1; // where the needle can begin
    if (needle.size() < 2 || from + kBlock > places)
        return text.indexOf(needle, from);

    // Looks for two characters of the needle. In the services' replies its ends are brackets and
    // quotes, which are everywhere; the characters next to them are seldom found together.
    const qsizetype left = needle.size() < kWithSigns ? 0 : 1;
    const qsizetype right = needle.size() - 1 - left;
    const char16_t leftUnit = needle[left].unicode();
    const char16_t rightUnit = needle[right].unicode();
    const char16_t *const begin = text.utf16();
    for (; from + kBlock <= places; from += kBlock) {
        const char16_t *const lefts = begin + from + left;
        const char16_t *const rights = begin + from + right;
        std::uint16_t hits = 0;
        for (qsizetype i = 0; i < kBlock; ++i)
            hits |=
                std::uint16_t(AllBitsIf(lefts[i] == leftUnit) & AllBitsIf(rights[i] == rightUnit));
        for (qsizetype i = 0; hits != 0 && i < kBlock; ++i) {
            if (lefts[i] == leftUnit && rights[i] == rightUnit
                && text.sliced(from + i).startsWith(needle))
                return from + i;
        }
    }
    return text.indexOf(needle, from);
}

QString ReplaceAll(QStringView text, QStringView before, QStringView after)
{
    QString replaced;
    replaced.reserve(text.size());
    qsizetype from = 0;
    for (qsizetype at = IndexOf(text, before); at >= 0; at = IndexOf(text, before, from)) {
        replaced.append(text.sliced(from, at - from)).append(after);
        from = at + before.size();
    }
    return replaced.append(text.sliced(from));
}

QStringView TrimSpaces(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString WithoutLoneSurrogates(QString text)
{
    if (text.isValidUtf16())
        return text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate())
            continue;
        if (IsPairAt(text, i))
            ++i;
        else
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

QStringView FirstCharacters(QStringView text, qsizetype length)
{
    if (text.size() <= length)
        return text;
    const bool splits = length > 0 && IsPairAt(text, length - 1);
    return text.first(splits ? length - 1 : length);
}

QString WithYear(QString text, int year)
{
    return text.replace("%YEAR%"_L1, QString::number(year));
}
