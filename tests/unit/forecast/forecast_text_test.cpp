#include "forecast/forecast_text.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

struct ProductCase
{
    const char *name;
    QString zone;
    QString product;
    QString expected;
};

void PrintTo(const ProductCase &c, std::ostream *out)
{
    *out << c.name;
}

class ForecastProduct : public testing::TestWithParam<ProductCase>
{
};

TEST_P(ForecastProduct, IsCleaned)
{
    const ProductCase &c = GetParam();

    EXPECT_EQ(CleanForecast(c.product, c.zone), c.expected);
}

// The header's first line is dropped with everything before it; names and time of issue stay.
const ProductCase kProductCases[] = {
    {.name = "UpperCaseOfOneZone",
     .zone = "mdz011",
     .product = "Expires:201401222100;;831272\n"
                "FPUS51 KLWX 221730\n"
                "ZFPLWX\n"
                "ZONE FORECAST PRODUCT\n"
                "\n"
                "MDZ011-222100-\n"
                "SOUTHERN BALTIMORE-\n"
                "INCLUDING THE CITY OF...TOWSON\n"
                "1230 PM EST WED JAN 22 2014\n"
                ".THIS AFTERNOON...MOSTLY SUNNY. HIGHS AROUND 14. \n"
                ".TONIGHT...PARTLY CLOUDY...\n"
                "THEN CLEAR. \n"
                "$$\n"
                "\n"
                "MDZ012-222100-\n"
                ".TONIGHT...ANOTHER ZONE.\n"
                "$$",
     .expected = "SOUTHERN BALTIMORE-\r\n"
                 "INCLUDING THE CITY OF. TOWSON\r\n"
                 "1230 PM EST WED JAN 22 2014\r\n"
                 "\r\n"
                 "THIS AFTERNOON. MOSTLY SUNNY. HIGHS AROUND 14. \r\n"
                 "\r\n"
                 "TONIGHT. PARTLY CLOUDY. \r\n"
                 "THEN CLEAR. \r\n"},
    {.name = "MixedCaseWithAHeadlineThatWraps",
     .zone = "NJZ014",
     .product = "Expires:202601092200;;045978\n"
                "ZFPPHI\n"
                "\n"
                "NJZ014-092200-\n"
                "Eastern Monmouth-\n"
                "400 AM EST Fri Jan 9 2026\n"
                "\n"
                "...WIND ADVISORY IN EFFECT FROM NOON TODAY TO\n"
                "MIDNIGHT EST TONIGHT...\n"
                "\n"
                ".TODAY...Mostly sunny. South winds 5 mph.\n"
                "\n"
                "$$",
     // The headline's three periods become ". ", so the line begins with a period, as a heading
     // does.
     .expected = "Eastern Monmouth-\r\n"
                 "400 AM EST Fri Jan 9 2026\r\n"
                 "\r\n"
                 "\r\n"
                 " WIND ADVISORY IN EFFECT FROM NOON TODAY TO\r\n"
                 "MIDNIGHT EST TONIGHT. \r\n"
                 "\r\n"
                 "\r\n"
                 "TODAY. Mostly sunny. South winds 5 mph.\r\n"
                 "\r\n"},
    {.name = "SeveralZonesInTheHeaderLine",
     .zone = "moz065",
     .product = "Zone Forecasts\n"
                "ILZ102-MOZ065-272300-\n"
                "Monroe IL-Jefferson MO-\n"
                ".FRIDAY...Partly sunny.\n"
                "$$",
     .expected = "Monroe IL-Jefferson MO-\r\n"
                 "\r\n"
                 "FRIDAY. Partly sunny.\r\n"},
    {.name = "NoEndMarks",
     .zone = "MDZ011",
     .product = "MDZ011-222100-\nTOWSON-\n.TONIGHT...CLEAR.",
     .expected = "TOWSON-\r\n\r\nTONIGHT. CLEAR."},
    {.name = "TablesAfterTheForecast",
     .zone = "MDZ011",
     .product = "MDZ011-222100-\n.TONIGHT...CLEAR.\n&&\nTEMPERATURE 12 20\n&&\n$$",
     .expected = ".TONIGHT. CLEAR.\r\n"}, // no line end before this period
    {.name = "TablesOfAnotherZoneBehindTheEnd",
     .zone = "MDZ011",
     .product = "MDZ011-222100-\nCLEAR.\n$$\nMDZ012\n&&\n",
     .expected = "CLEAR.\r\n"},
    {.name = "CarriageReturnsAlreadyThere",
     .zone = "MDZ011",
     .product = "MDZ011-222100-\r\nTOWSON-\r\n.TONIGHT...CLEAR.\r\n$$\r\n",
     .expected = "TOWSON-\r\r\n\r\nTONIGHT. CLEAR.\r\r\n"},
    {.name = "CodeThatDoesNotOccur",
     .zone = "MDZ011",
     .product = "12345HEADER LINE\nBODY\n$$",
     .expected = "BODY\r\n"},
    {.name = "CodeInSmallLettersDoesNotOccur",
     .zone = "mdz011",
     .product = "mdz011-222100-\nBODY\n",
     .expected = "BODY\r\n"},
    {.name = "FiveCharactersGoBeforeTheLine",
     .zone = "MDZ011",
     .product = "1234\nFIRST\nSECOND",
     .expected = "SECOND"},
    {.name = "SixCharactersKeepTheLine",
     .zone = "MDZ011",
     .product = "12345\nFIRST\nSECOND",
     .expected = "FIRST\r\nSECOND"},
    {.name = "CodeOfAnotherLength",
     .zone = "MD",
     .product = "xx MD\nAB\nFIRST\nSECOND",
     .expected = "SECOND"},
    {.name = "CodeAtTheVeryEnd", .zone = "MDZ011", .product = "x MDZ011", .expected = ""},
    {.name = "CodeCutOff", .zone = "MDZ0", .product = "x MDZ0", .expected = ""},
    {.name = "NoLineBehindTheCode",
     .zone = "MDZ011",
     .product = "MDZ011-222100-",
     .expected = "-222100-"},
    {.name = "ShorterThanTheCut", .zone = "MDZ011", .product = "gone", .expected = ""},
    {.name = "FourPeriods",
     .zone = "MDZ011",
     .product = "MDZ011\nA....B",
     .expected = "A\r\nB"}, // "A. .B"
    {.name = "FivePeriods",
     .zone = "MDZ011",
     .product = "MDZ011\nA.....B",
     .expected = "A\r\n.B"}, // "A. ..B"
    {.name = "SixPeriods",
     .zone = "MDZ011",
     .product = "MDZ011\nA......B",
     .expected = "A\r\n B"}, // "A. . B"
    {.name = "SentenceEndsAheadOfThreePeriods",
     .zone = "MDZ011",
     .product = "MDZ011\nCLEAR. ...WINDY",
     .expected = "CLEAR\r\n WINDY"}, // "CLEAR. . WINDY"
    {.name = "HeadingAheadOfAPeriodAlone",
     .zone = "MDZ011",
     .product = "MDZ011\nA\n. B",
     .expected = "A\r\n\r\n B"},
    {.name = "EndMarkAtTheFront", .zone = "MDZ011", .product = "MDZ011\n$$\nREST", .expected = ""},
    {.name = "TableMarkAtTheFront",
     .zone = "MDZ011",
     .product = "MDZ011\n&&\nREST\n&&",
     .expected = "&&\r\nREST\r\n&&"},
    {.name = "TableMarkBehindOneCharacter",
     .zone = "MDZ011",
     .product = "MDZ011\nA&&\nREST",
     .expected = "A"},
    {.name = "LonelyMarks",
     .zone = "MDZ011",
     .product = "MDZ011\nUP TO $5 & MORE",
     .expected = "UP TO $5 & MORE"},
    {.name = "NoZoneAskedFor", .zone = "", .product = "123456 HEADER\nBODY", .expected = "BODY"},
    {.name = "Nothing", .zone = "MDZ011", .product = "", .expected = ""},
};

INSTANTIATE_TEST_SUITE_P(Table, ForecastProduct, testing::ValuesIn(kProductCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(CleanForecast, FindsTheFirstPlaceOfTheCode)
{
    EXPECT_EQ(CleanForecast(u"MDZ011-1\nA\nMDZ011-2\nB", "MDZ011"), "A\r\nMDZ011-2\r\nB");
}

// Long products are cleaned in pieces. No mark may be split, wherever a piece ends.
TEST(CleanForecast, CleansLongProductsAsShortOnes)
{
    constexpr qsizetype kMany = 4000;
    const QString line = "COLD...WINDY\n.TODAY\n"; // 20 characters: each end in turn
    const QString cleaned = "COLD. WINDY\r\n\r\nTODAY\r\n";
    for (const char *shift : {"", "A", "AB", "ABC", "ABCD", "ABCDE"}) {
        const QString front = QString("MDZ011-1-\n") + shift;
        EXPECT_EQ(CleanForecast(front + line.repeated(kMany), "MDZ011"),
                  shift + cleaned.repeated(kMany));
    }
}

TEST(CleanForecast, LeavesAProductOfNothingButLineEndsInOrder)
{
    const QString product = "MDZ011" + QString(100'000, u'\n');

    const QString cleaned = CleanForecast(product, "MDZ011");

    EXPECT_EQ(cleaned.size(), 2 * 99'999);
    EXPECT_EQ(cleaned.count("\r\n"), 99'999);
}

} // namespace
