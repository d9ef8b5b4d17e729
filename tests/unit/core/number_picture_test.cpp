#include "core/number_picture.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

struct PictureCase
{
    const char *name;
    double value = 0;
    QString picture = {};
    QString expected = {};
};

class NumberPictures : public testing::TestWithParam<PictureCase>
{
};

TEST_P(NumberPictures, GiveText)
{
    EXPECT_EQ(FormatNumber(GetParam().value, GetParam().picture), GetParam().expected);
}

const PictureCase kCases[] = {
    // Halves round away from zero, judged by the decimal form and not the binary one.
    {.name = "HalfUp", .value = 1.45, .picture = "0.0", .expected = "1.5"},
    {.name = "HalfUpTwoPlaces", .value = 5.015, .picture = "0.00", .expected = "5.02"},
    {.name = "NegativeHalfAwayFromZero", .value = -3.25, .picture = "0.0", .expected = "-3.3"},
    {.name = "HalfUpEvenNeighbour", .value = 61.25, .picture = "0.0", .expected = "61.3"},
    {.name = "OneSixteenthInPercent", .value = 6.25, .picture = "0.0", .expected = "6.3"},
    {.name = "HalfToAWholeNumber", .value = 0.75, .picture = "0", .expected = "1"},
    {.name = "HalfOfOne", .value = 0.5, .picture = "0", .expected = "1"},
    {.name = "BelowHalf", .value = 0.49, .picture = "0", .expected = "0"},
    {.name = "CarriesIntoANewDigit", .value = 9.96, .picture = "0.0", .expected = "10.0"},
    {.name = "CarriesThroughAllNines", .value = 999.95, .picture = "0.0", .expected = "1000.0"},
    {.name = "MuchSmallerThanThePlaces", .value = 0.0004, .picture = "0.0", .expected = "0.0"},

    // Places.
    {.name = "ZeroPads", .value = 7, .picture = "00", .expected = "07"},
    {.name = "AllIntegerDigitsAreShown", .value = 1234.5, .picture = "0.0", .expected = "1234.5"},
    {.name = "HashHasNoZeroAheadOfThePoint", .value = 0.666, .picture = "#.0", .expected = ".7"},
    {.name = "HashShowsNothingForZero", .value = 0, .picture = "#", .expected = ""},
    {.name = "HashShowsNothingForWhatRoundsToZero", .value = 0.3, .picture = "#", .expected = ""},
    {.name = "HashShowsTheNumber", .value = 63, .picture = "#", .expected = "63"},
    {.name = "HashesAheadOfZero", .value = 5, .picture = "##0", .expected = "5"},
    {.name = "DecimalHashDropsZerosButNotThePoint",
     .value = 3,
     .picture = "0.##",
     .expected = "3."},
    {.name = "DecimalHashShowsWhatCounts", .value = 3.14159, .picture = "0.##", .expected = "3.14"},
    {.name = "ZeroBehindAHashKeepsIt", .value = 3.1, .picture = "0.#0", .expected = "3.10"},
    {.name = "NoIntegerPlaces", .value = 12.34, .picture = ".0", .expected = "12.3"},
    {.name = "LargeNumbersArePlain",
     .value = 1e20,
     .picture = "0",
     .expected = "100000000000000000000"},

    // Groups, percent, exponent.
    {.name = "Groups", .value = 12345.678, .picture = "#,##0.0", .expected = "12,345.7"},
    {.name = "NoGroupBelowAThousand", .value = 999, .picture = "#,##0", .expected = "999"},
    {.name = "GroupsOfMillions", .value = 1234567, .picture = "#,##0", .expected = "1,234,567"},
    {.name = "GroupsInPadding", .value = 12, .picture = "0,000", .expected = "0,012"},
    {.name = "Percent", .value = 0.1264, .picture = "0.0%", .expected = "12.6%"},
    {.name = "Exponent", .value = 4500, .picture = "0.00E+00", .expected = "4.50E+03"},
    {.name = "ExponentOfASmallNumber",
     .value = 0.00012,
     .picture = "0.0E+00",
     .expected = "1.2E-04"},
    {.name = "ExponentSignOnlyWhenNegative",
     .value = 4500,
     .picture = "0.0E-00",
     .expected = "4.5E03"},
    {.name = "ExponentCarries", .value = 9.99, .picture = "0.0E+0", .expected = "1.0E+1"},
    {.name = "ExponentOfZero", .value = 0, .picture = "0.0E+00", .expected = "0.0E+00"},

    // Literals and sections.
    {.name = "QuotedText", .value = 5, .picture = "0\" of 0\"", .expected = "5 of 0"},
    {.name = "EscapedCharacter", .value = 5, .picture = "\\#0", .expected = "#5"},
    {.name = "OtherCharactersAreShown", .value = 5, .picture = "(0)", .expected = "(5)"},
    {.name = "MinusStandsInFrontOfLiterals", .value = -5, .picture = "(0)", .expected = "-(5)"},
    {.name = "NegativeSection", .value = -8.2, .picture = "0.0;(0.0)", .expected = "(8.2)"},
    {.name = "PositiveSection", .value = 8.2, .picture = "0.0;(0.0)", .expected = "8.2"},
    {.name = "ZeroSection", .value = 0, .picture = "0;-0;\"none\"", .expected = "none"},
    {.name = "EmptyNegativeSectionFallsBack",
     .value = -5,
     .picture = "0.0;;\"none\"",
     .expected = "-5.0"},
    {.name = "AbsentZeroSectionFallsBack", .value = 0, .picture = "0.0;(0.0)", .expected = "0.0"},
    {.name = "SemicolonInQuotesPartsNothing", .value = 5, .picture = "0\";\"", .expected = "5;"},
    {.name = "EmptyPictureIsTheNumber", .value = 68.4, .picture = "", .expected = "68.4"},

    // Small negative values: no minus sign if only zeros follow.
    {.name = "NegativeZeroHasNoMinus", .value = -0.04, .picture = "0.0", .expected = "0.0"},
    {.name = "NegativeThatRoundsToZeroIsEmptyInAHash",
     .value = -0.3,
     .picture = "#",
     .expected = ""},
    {.name = "NegativeThatStays", .value = -0.05, .picture = "0.0", .expected = "-0.1"},
};

INSTANTIATE_TEST_SUITE_P(Table, NumberPictures, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
