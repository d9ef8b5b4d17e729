#include "support/qt_printers.h"
#include "zones/zone_header.h"

#include <gtest/gtest.h>

namespace {

struct HeaderCase
{
    const char *name;
    QString file;
    std::optional<QString> expected;
};

void PrintTo(const HeaderCase &c, std::ostream *out)
{
    *out << c.name;
}

class ZoneHeader : public testing::TestWithParam<HeaderCase>
{
};

TEST_P(ZoneHeader, GivesTheEntry)
{
    EXPECT_EQ(ZoneEntry(GetParam().file, "mdz011.txt"), GetParam().expected);
}

const HeaderCase kHeaderCases[] = {
    {"HyphensWithinALineStay",
     "ZFPLWX\n\nMDZ011-170915-\nNorthern Baltimore-Southern Baltimore-\n"
     "Including the cities of Towson...Dundalk\n1015 AM EST SUN NOV 16 2026\n\n.TODAY...Sunny.\n",
     "MDZ011:  Northern Baltimore-Southern Baltimore, Including the cities of Towson, Dundalk"},
    {"OneNameOnly", "MDZ011-170915-\nEastern Monmouth-\n400 AM EST\n", "MDZ011:  Eastern Monmouth"},
    {"SeveralZonesInTheHeader",
     "MDZ011-VAZ054-222100-\nDISTRICT-ARLINGTON/FALLS CHURCH-\n"
     "INCLUDING THE CITIES OF...WASHINGTON...ALEXANDRIA\n1230 PM EST\n",
     "MDZ011:  DISTRICT-ARLINGTON/FALLS CHURCH, INCLUDING THE CITIES OF, WASHINGTON, ALEXANDRIA"},
    {"LineWithoutHyphenRunsOn", "MDZ011\nIncluding the cities of Towson,\nDundalk\n1015 AM\n",
     "MDZ011:  Including the cities of Towson,Dundalk"},
    {"HyphensAtTwoLineEnds", "MDZ011\nA-\nB-\nC\n1 AM", "MDZ011:  A, B, C"},
    {"TwoHyphensAtALineEnd", "MDZ011\nA--\nB--\n1 AM", "MDZ011:  A-, B-"},
    {"LineOfAHyphenAlone", "MDZ011\nA-\n-\nB\n1 AM", "MDZ011:  A, , B"},
    {"EmptyLineEndsTheNames", "MDZ011\nA-\n\nB-\n", "MDZ011:  A"},
    {"EveryDigitEndsTheNames", "MDZ011\nA\n0 B", "MDZ011:  A"},
    {"NineEndsTheNames", "MDZ011\nA\n9 B", "MDZ011:  A"},
    {"SlashAndColonDoNot", "MDZ011\nA\n/B\n:C\n", "MDZ011:  A/B:C"},
    {"BlankAheadOfADigitDoesNot", "MDZ011\nA\n 1 B\n", "MDZ011:  A 1 B"},
    {"EndOfTheFileEndsTheNames", "MDZ011\nA-\nB-", "MDZ011:  A, B"},
    {"FirstNameLineCountsWhateverItIs", "MDZ011\n1015 AM\nA\n", "MDZ011:  1015 AMA"},
    {"EmptyFirstNameLine", "MDZ011\n\nA-\n1\n", "MDZ011:  A"},
    {"NothingBehindTheHeader", "MDZ011\n", "MDZ011:  "},
    {"PeriodsBecomeACommaAcrossLines", "MDZ011\nA..\n.B....C\n", "MDZ011:  A, B, .C"},
    {"SmallLettersInTheFile", "mdz011-170915-\nTowson-\n1\n", "MDZ011:  Towson"},
    {"CodeFurtherInsideALineDoesNotCount",
     "PAZ001-MDZ011-1-\nNo-\n1\n\n MDZ011\nNo\n1\n\nMDZ011-2-\nYes-\n1\n", "MDZ011:  Yes"},
    {"FirstLineThatBeginsWithTheCode", "MDZ0110\nA-\n1\nMDZ011\nB-\n", "MDZ011:  A"},
    {"CarriageReturnBelongsToTheLine", "MDZ011-1-\r\nA-\r\nB-\r\n1 AM\r\n",
     "MDZ011:  A-\rB-\r"}, // the hyphen is no longer at the end
    {"LineOfACarriageReturnIsNotEmpty", "MDZ011\r\nA\r\n\r\nB\r\n1", "MDZ011:  A\r\rB\r"},
    {"NoLineBeginsWithTheCode", "MDZ010-1-\nTowson-\n1\n", std::nullopt},
    {"RangeThatMeansTheCode", "MDZ010>012-1-\nTowson-\n1\n", std::nullopt},
    {"CodeOnTheLastLine", "ZFPLWX\nMDZ011-170915-", std::nullopt},
    {"CodeCutOff", "MDZ01", std::nullopt},
    {"EmptyFile", "", std::nullopt},
};

INSTANTIATE_TEST_SUITE_P(Table, ZoneHeader, testing::ValuesIn(kHeaderCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(ZoneEntry, TakesEveryExtensionOutOfTheName)
{
    EXPECT_EQ(ZoneEntry(u"AKZ1\nA-\n", "a.txtkz1.txt"), std::optional<QString>("AKZ1:  A"));
    EXPECT_EQ(ZoneEntry(u"AKZ1.TXT\nA-\n", "akz1.TXT"), std::optional<QString>("AKZ1.TXT:  A"));
}

TEST(ZoneEntry, HoldsAsManyLinesAsThereAre)
{
    const QString file = "MDZ011\n" + QString("A-\n").repeated(50'000);

    EXPECT_EQ(ZoneEntry(file, "mdz011.txt")->size(), 9 + 50'000 * 3 - 2);
}

} // namespace
