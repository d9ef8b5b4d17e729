#include "station/update_cycle.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(CheckInterval, IsTheSelectedOne)
{
    EXPECT_EQ(CheckIntervalSeconds({true, false, false, false}), 900);
    EXPECT_EQ(CheckIntervalSeconds({false, true, false, false}), 1800);
    EXPECT_EQ(CheckIntervalSeconds({false, false, true, false}), 3600);
    EXPECT_EQ(CheckIntervalSeconds({false, false, false, true}), 10800);
}

TEST(CheckInterval, IsFifteenMinutesWithoutASelection)
{
    EXPECT_EQ(CheckIntervalSeconds({}), 900);
}

TEST(LocationMissing, LooksAtTheBoxesInUseOnly)
{
    EXPECT_FALSE(IsLocationMissing({{{true, "Springfield"}, {false, ""}, {false, ""}, {}}}));
    EXPECT_TRUE(IsLocationMissing({{{true, "Springfield"}, {true, ""}, {false, ""}, {}}}));
    EXPECT_TRUE(IsLocationMissing({{{true, "a"}, {true, "b"}, {true, "c"}, {true, "   "}}}));
    EXPECT_TRUE(IsLocationMissing({{{true, ""}, {}, {}, {}}}));
}

TEST(LocationMissing, TakesATabAsText)
{
    EXPECT_FALSE(IsLocationMissing({{{true, "\t"}, {}, {}, {}}}));
}

struct PortCase
{
    const char *name;
    QString text;
    QString expected;
};

void PrintTo(const PortCase &c, std::ostream *out)
{
    *out << c.name;
}

class PortBox : public testing::TestWithParam<PortCase>
{
};

TEST_P(PortBox, HoldsAPort)
{
    EXPECT_EQ(HttpPortText(GetParam().text), GetParam().expected);
}

const PortCase kPortCases[] = {
    {"Kept", "443", "443"},
    {"LeadingNumber", "8080abc", "8080"},
    {"Blanks", "  8080 ", "8080"},
    {"NoNumber", "abc", "80"},
    {"Empty", "", "80"},
    {"Zero", "0", "80"},
    {"Negative", "-5", "80"},
    {"RoundedUp", "80.6", "81"},
    {"HalfToEvenDown", "80.5", "80"},
    {"HalfToEvenUp", "81.5", "82"},
    {"HalfOfNothing", "0.5", "80"},
    {"JustAboveHalf", "0.51", "1"},
    {"HalfToTwo", "1.5", "2"},
    {"HighestPort", "65535", "65535"},
    {"HighestPortRounded", "65535.4", "65535"},
    {"HalfBeyondThePorts", "65535.5", "80"},
    {"BeyondThePorts", "65536", "80"},
    {"AboveSixteenBitsSigned", "40000", "40000"},
    {"ExponentForm", "1E3", "1000"},
    {"BeyondAllNumbers", "1E999", "80"},
};

INSTANTIATE_TEST_SUITE_P(Table, PortBox, testing::ValuesIn(kPortCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(UsableProfileIndex, IsTheFirstForANumberThatNamesNone)
{
    EXPECT_EQ(UsableProfileIndex(0, 3), 0);
    EXPECT_EQ(UsableProfileIndex(2, 3), 2);
    EXPECT_EQ(UsableProfileIndex(3, 3), 0);
    EXPECT_EQ(UsableProfileIndex(-1, 3), 0);
    EXPECT_EQ(UsableProfileIndex(32767, 10), 0);
}

TEST(UsableProfileIndex, IsNoneInAnEmptyList)
{
    EXPECT_EQ(UsableProfileIndex(0, 0), -1);
    EXPECT_EQ(UsableProfileIndex(7, 0), -1);
}

} // namespace
