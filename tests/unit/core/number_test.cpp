#include "core/number.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct LeadingCase
{
    const char *name;
    QString text = {};
    double expected = 0;
};

class LeadingNumbers : public testing::TestWithParam<LeadingCase>
{
};

TEST_P(LeadingNumbers, IsRead)
{
    EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().expected);
}

const LeadingCase kLeading[] = {
    {.name = "Plain", .text = "61.3", .expected = 61.3},
    {.name = "BlanksAheadAndTextBehind", .text = "  61.3F", .expected = 61.3},
    {.name = "TabAndLineEndsAhead", .text = "\t\r\n 7", .expected = 7},
    {.name = "ColonEndsIt", .text = "7:45", .expected = 7},
    {.name = "CommaEndsIt", .text = "2,500", .expected = 2},
    {.name = "Exponent", .text = "6e3", .expected = 6000},
    {.name = "ExponentOfNumberToText",
     .text = "1.66666666666667E-02",
     .expected = 0.0166666666666667},
    {.name = "EWithoutDigitsIsNoExponent", .text = "9 East", .expected = 9},
    {.name = "EAtTheEndIsNoExponent", .text = "9E", .expected = 9},
    {.name = "ESignWithoutDigitsIsNoExponent", .text = "9E+", .expected = 9},
    {.name = "NoDExponent", .text = "9D2", .expected = 9},
    {.name = "PointFirst", .text = "-.25x", .expected = -0.25},
    {.name = "PointLast", .text = "5.", .expected = 5},
    {.name = "PlusSign", .text = "+32", .expected = 32},
    {.name = "Empty", .text = "", .expected = 0},
    {.name = "NotAvailable", .text = "N/A", .expected = 0},
    {.name = "LoneMinus", .text = "-", .expected = 0},
    {.name = "LonePoint", .text = ".", .expected = 0},
    {.name = "TwoSigns", .text = "--5", .expected = 0},
    {.name = "Currency", .text = "$5", .expected = 0},
    {.name = "Bracket", .text = "(5)", .expected = 0},
    {.name = "NotANumber", .text = "nan", .expected = 0},
    {.name = "Infinity", .text = "inf", .expected = 0},
    {.name = "Hexadecimal", .text = "0x1F", .expected = 0},
    {.name = "AmpersandHexadecimal", .text = "&H1F", .expected = 0},
    {.name = "InnerBlankEndsIt", .text = "12 34", .expected = 12},
    {.name = "BlankBehindTheSign", .text = "- 5", .expected = 0},
    {.name = "ArabicDigitsAreNone", .text = QString(QChar(0x0665)), .expected = 0},
    {.name = "TooSmallIsZero", .text = "1e-999", .expected = 0},
    {.name = "ManyZerosAheadOfTooSmall", .text = "0.000001e-400", .expected = 0},
};

INSTANTIATE_TEST_SUITE_P(Table, LeadingNumbers, testing::ValuesIn(kLeading),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(LeadingNumber, TooLargeIsAFault)
{
    EXPECT_EQ(LeadingNumber(u"1e309"), std::nullopt);
    EXPECT_EQ(LeadingNumber(u"-1e309x"), std::nullopt);
    EXPECT_EQ(LeadingNumber(QString(400, u'9')), std::nullopt);
    EXPECT_EQ(LeadingNumber(u"1e99999999999999999999"), std::nullopt);
}

struct TextCase
{
    const char *name;
    double value = 0;
    QString expected = {};
};

class NumberTexts : public testing::TestWithParam<TextCase>
{
};

TEST_P(NumberTexts, AreShortest)
{
    EXPECT_EQ(NumberToText(GetParam().value), GetParam().expected);
}

const TextCase kTexts[] = {
    {.name = "Zero", .value = 0, .expected = "0"},
    {.name = "MinusZero", .value = -0.0, .expected = "0"},
    {.name = "Whole", .value = 72, .expected = "72"},
    {.name = "NeutralMaximum", .value = -1000, .expected = "-1000"},
    {.name = "OneDecimal", .value = 68.4, .expected = "68.4"},
    {.name = "HidesBinaryDust", .value = 0.7 + 0.1, .expected = "0.8"},
    {.name = "CelsiusToFahrenheit", .value = 21.7 * 1.8 + 32, .expected = "71.06"},
    {.name = "BelowOneHasAZero", .value = 0.25, .expected = "0.25"},
    {.name = "NegativeBelowOne", .value = -0.25, .expected = "-0.25"},
    {.name = "FifteenDigitsBehindThePoint", .value = 1.0 / 6, .expected = "0.166666666666667"},
    {.name = "SixteenDigitsBehindThePoint", .value = 1.0 / 60, .expected = "1.66666666666667E-02"},
    {.name = "ShortSmallOne", .value = 0.025, .expected = "0.025"},
    {.name = "SmallButShort", .value = 6.5e-9, .expected = "0.0000000065"},
    {.name = "LargestPlain", .value = 999999999999999.0, .expected = "999999999999999"},
    {.name = "PlainWithZeros", .value = 250000000000000.0, .expected = "250000000000000"},
    {.name = "ExponentFromFifteenZerosOn", .value = 1e15, .expected = "1E+15"},
    {.name = "TwoExponentDigits", .value = 2000000000000000.0, .expected = "2E+15"},
    {.name = "ThreeExponentDigits", .value = -1.5e300, .expected = "-1.5E+300"},
    {.name = "RoundsUpIntoTheNextPower", .value = 999999999999999.9, .expected = "1E+15"},
};

INSTANTIATE_TEST_SUITE_P(Table, NumberTexts, testing::ValuesIn(kTexts),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(ToInt16, RoundsHalvesToEven)
{
    EXPECT_EQ(ToInt16(6.5), 6);
    EXPECT_EQ(ToInt16(7.5), 8);
    EXPECT_EQ(ToInt16(-0.5), 0);
    EXPECT_EQ(ToInt16(80.6), 81);
}

TEST(ToInt16, IsNothingOutsideItsRangeAfterRounding)
{
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(32767.5), std::nullopt);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ToInt16(-32769), std::nullopt);
    EXPECT_EQ(ToInt16(std::nan("")), std::nullopt);
    EXPECT_EQ(ToInt16(HUGE_VAL), std::nullopt);
}

TEST(WholeTextNumber, TakesWholeTextsOnly)
{
    EXPECT_EQ(WholeTextNumber(u" 3 "), 3.0);
    EXPECT_EQ(WholeTextNumber(u"2.6"), 2.6);
    EXPECT_EQ(WholeTextNumber(u"1e2"), 100.0);
    EXPECT_EQ(WholeTextNumber(u"-1"), -1.0);
    for (const QStringView text : {u"", u" ", u"5abc", u"5%", u"1.2.3", u"True"})
        EXPECT_EQ(WholeTextNumber(text), std::nullopt) << text.toString().toStdString();
}

TEST(WholeTextNumber, TooLargeIsStillANumber)
{
    EXPECT_EQ(WholeTextNumber(u"1e999"), HUGE_VAL);
}

} // namespace
