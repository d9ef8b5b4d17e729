#include "zones/zone_search.h"

#include <gtest/gtest.h>

namespace {

const QStringList kEntries{
    "MDZ011:  Southern Baltimore, Including the cities of Towson", // 0
    "MDZ013:  Prince Georges",                                     // 1
    "MDZ014:  Anne Arundel",                                       // 2
    "MDZ504:  Towson Hills",                                       // 3
};

TEST(FindZone, IgnoresCase)
{
    EXPECT_EQ(FindZone(kEntries, "towson", -1), 0);
    EXPECT_EQ(FindZone(kEntries, "PRINCE", -1), 1);
    EXPECT_EQ(FindZone(kEntries, "anne aRUNDEL", -1), 2);
}

TEST(FindZone, NeverLooksAtTheFirstSevenCharacters)
{
    EXPECT_EQ(FindZone(kEntries, "MDZ", -1), -1);
    EXPECT_EQ(FindZone(kEntries, "013", -1), -1);
    EXPECT_EQ(FindZone(kEntries, ":", -1), -1);
    EXPECT_EQ(FindZone(kEntries, ":  Prince", -1), -1);
    EXPECT_EQ(FindZone(kEntries, "  Prince", -1), 1); // from the eighth character on
    EXPECT_EQ(FindZone({"MDZ011:  Mdz Town"}, "mdz", -1), 0);
}

TEST(FindZone, GoesOnBehindTheSelection)
{
    EXPECT_EQ(FindZone(kEntries, "towson", 0), 3);
    EXPECT_EQ(FindZone(kEntries, "towson", 1), 3);
}

TEST(FindZone, WrapsToTheFirstMatchUpToTheSelectionItself)
{
    EXPECT_EQ(FindZone(kEntries, "towson", 3), 0);
    EXPECT_EQ(FindZone(kEntries, "arundel", 2), 2);
    EXPECT_EQ(FindZone(kEntries, "arundel", 3), 2);
}

TEST(FindZone, FindsNothing)
{
    EXPECT_EQ(FindZone(kEntries, "Rockville", -1), -1);
    EXPECT_EQ(FindZone(kEntries, "Rockville", 2), -1);
    EXPECT_EQ(FindZone(kEntries, "Rockville", 3), -1);
    EXPECT_EQ(FindZone({}, "x", -1), -1);
    EXPECT_EQ(FindZone({"MDZ"}, "Z", -1), -1);
}

TEST(FindZone, CountsInTheUpperCaseEntry)
{
    // In capitals the sharp s takes up two places, so "A" is the eighth.
    EXPECT_EQ(FindZone({QString::fromUtf8("12345\xC3\x9F"
                                          "a")},
                       "a", -1),
              0);
}

} // namespace
