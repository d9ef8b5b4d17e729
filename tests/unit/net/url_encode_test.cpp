#include "net/url_encode.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct UrlEncodeCase
{
    const char *name;
    QString text;
    QString expected;
};

void PrintTo(const UrlEncodeCase &c, std::ostream *out)
{
    *out << c.name;
}

class UrlEncoding : public testing::TestWithParam<UrlEncodeCase>
{
};

TEST_P(UrlEncoding, Encodes)
{
    EXPECT_EQ(UrlEncode(GetParam().text), GetParam().expected);
}

const UrlEncodeCase kCases[] = {
    {"BlanksAroundAndInside", "  New York  ", "New%20York"},
    {"PeriodAndComma", "St. Paul, MN", "St.%20Paul,%20MN"},
    {"LonePercentAtTheEnd", "100%", "100%25"},
    {"PercentAndOneCharacterAtTheEnd", "100%2", "100%252"},
    {"KnownEscapeStays", "a%20b", "a%20b"},
    {"SmallLettersAreNoEscape", "a%2bb", "a%252bb"},
    {"SmallLetterAtTheEndIsNoEscape", "a%2b", "a%252b"},
    {"NoHexadecimalDigits", "%ZZ", "%25ZZ"},
    {"PlusAndAt", "a+b@c", "a%2Bb%40c"},
    {"Empty", "", ""},
    {"BlanksOnly", "    ", ""},
    {"TabsAndLineEndsStay", "\ta\r\n", "\ta\r\n"},
    {"EveryEscapedCharacter", "@+ ;<>~^`\\[]{}|\"x",
     "%40%2B%20%3B%3C%3E%7E%5E%60%5C%5B%5D%7B%7D%7C%22x"},
    {"EveryKnownEscape", "%25%40%2B%20%3B%3C%3E%7E%5E%60%5C%5B%5D%7B%7D%7C%22",
     "%25%40%2B%20%3B%3C%3E%7E%5E%60%5C%5B%5D%7B%7D%7C%22"},
    {"OtherEscapesAreEscapedAgain", "%41%2C%0A%00", "%2541%252C%250A%2500"},
    {"WhatIsLeftAlone", "azAZ09/?&=#:,.-_!*'()$", "azAZ09/?&=#:,.-_!*'()$"},
    {"OutsideAscii", u"S\u00E3o \u20AC"_s, u"S\u00E3o%20\u20AC"_s},
    {"PercentBeforeAnEscape", "%%20", "%25%20"},
    {"TwoPercents", "%%", "%25%25"},
    {"KeptEscapeThenItsDigits", "%2520", "%2520"},
    {"MixedCaseIsNoEscape", "%3b%3B", "%253b%3B"},
};

INSTANTIATE_TEST_SUITE_P(Table, UrlEncoding, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(UrlEncode, CutsAtTheFirstNul)
{
    EXPECT_EQ(UrlEncode(QString::fromLatin1("New York\0 City\0x", 16)), "New%20York");
    EXPECT_EQ(UrlEncode(QString::fromLatin1("New York \0x", 11)), "New%20York");
    EXPECT_EQ(UrlEncode(QString::fromLatin1("\0x", 2)), "");
}

} // namespace
