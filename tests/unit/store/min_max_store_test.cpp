#include "store/min_max_store.h"
#include "support/qt_printers.h"
#include "support/recorded_trace.h"
#include "support/test_files.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

class MinMaxStore : public testing::Test
{
protected:
    [[nodiscard]] IniPath Ini() const { return {.path = folder.Path("m.ini")}; }

    /// The store as a start on `today` finds it.
    [[nodiscard]] MinMaxTemps LoadFrom(const QByteArray &bytes, QDate today) const
    {
        folder.Write("m.ini", bytes);
        MinMaxTemps minMax{.TodayMinTemp = 1,
                           .TodayMaxTemp = 2,
                           .PrevMinTemp = 3,
                           .PrevMaxTemp = 4,
                           .MinMaxDay = 5};
        LoadMinMaxTemps(minMax, Ini(), today);
        return minMax;
    }

    [[nodiscard]] QString Stored(QStringView section, QStringView key) const
    {
        return ReadIniValue(IniFile(Ini()), section, key, u"none");
    }

    TestFolder folder;
};

void ExpectPairs(const MinMaxTemps &minMax, std::array<double, 4> expected)
{
    EXPECT_EQ(minMax.TodayMinTemp, expected[0]);
    EXPECT_EQ(minMax.TodayMaxTemp, expected[1]);
    EXPECT_EQ(minMax.PrevMinTemp, expected[2]);
    EXPECT_EQ(minMax.PrevMaxTemp, expected[3]);
}

constexpr std::array<double, 4> kNeutral{1000, -1000, 1000, -1000};

TEST_F(MinMaxStore, FirstRunIsNeutralAndWritesTheDay)
{
    MinMaxTemps minMax;

    LoadMinMaxTemps(minMax, Ini(), QDate(2026, 3, 7));

    ExpectPairs(minMax, kNeutral);
    EXPECT_EQ(minMax.MinMaxDay, 7);
    EXPECT_EQ(folder.Bytes("m.ini"), QByteArray("[GENERAL]\r\nCURRDAY=7\r\n"));
}

TEST_F(MinMaxStore, RestartOnTheSameDayGoesOnWithBothPairs)
{
    const MinMaxTemps minMax = LoadFrom("[GENERAL]\nCURRDAY=7\nPREVDAY=6\n"
                                        "[DAY7]\nMIN=41.5\nMAX=68.4\n[DAY6]\nMIN=-3\nMAX=72\n",
                                        QDate(2026, 3, 7));

    ExpectPairs(minMax, {41.5, 68.4, -3, 72});
    EXPECT_EQ(minMax.MinMaxDay, 7);
}

TEST_F(MinMaxStore, RestartOnTheSameDayWithoutPreviousDay)
{
    const QByteArray days = "[DAY7]\nMIN=41\nMAX=68\n[DAY0]\nMIN=1\nMAX=2\n";

    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=7\n" + days, QDate(2026, 3, 7)),
                {41, 68, 1000, -1000});
    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=7\nPREVDAY=0\n" + days, QDate(2026, 3, 7)),
                {41, 68, 1000, -1000});
}

TEST_F(MinMaxStore, RestartOnTheSameDayWithoutItsSections)
{
    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=7\nPREVDAY=6\n", QDate(2026, 3, 7)), kNeutral);
}

TEST_F(MinMaxStore, RestartOnTheNextDayMakesThePairThePreviousOne)
{
    const MinMaxTemps minMax = LoadFrom("[GENERAL]\r\nCURRDAY=6\r\nPREVDAY=5\r\n[DAY6]\r\n"
                                        "MIN=40\r\nMAX=60\r\n[DAY5]\r\nMIN=1\r\nMAX=2\r\n",
                                        QDate(2026, 3, 7));

    ExpectPairs(minMax, {1000, -1000, 40, 60});
    EXPECT_EQ(minMax.MinMaxDay, 7);
    EXPECT_EQ(Stored(u"GENERAL", u"CURRDAY"), QString("7"));
    EXPECT_EQ(Stored(u"GENERAL", u"PREVDAY"), QString("5")); // untouched
}

TEST_F(MinMaxStore, RestartAfterTwoDaysIsNeutral)
{
    const QByteArray days = "[DAY5]\nMIN=40\nMAX=60\n[DAY8]\nMIN=40\nMAX=60\n";

    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=5\n" + days, QDate(2026, 3, 7)), kNeutral);
    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=8\n" + days, QDate(2026, 3, 7)), kNeutral);
}

struct MonthCase
{
    const char *name;
    QDate today;
    int storedDay;
    bool yesterday;
};

void PrintTo(const MonthCase &c, std::ostream *out)
{
    *out << c.name;
}

class MinMaxMonth : public MinMaxStore, public testing::WithParamInterface<MonthCase>
{
};

TEST_P(MinMaxMonth, IsCrossed)
{
    const MonthCase &c = GetParam();
    const QByteArray day = QByteArray::number(c.storedDay);

    const MinMaxTemps minMax =
        LoadFrom("[GENERAL]\nCURRDAY=" + day + "\n[DAY" + day + "]\nMIN=40\nMAX=60\n", c.today);

    ExpectPairs(minMax, c.yesterday ? std::array<double, 4>{1000, -1000, 40, 60} : kNeutral);
}

const MonthCase kMonthCases[] = {
    {"LeapDay", QDate(2028, 3, 1), 29, true},
    {"DayBeforeLeapDay", QDate(2028, 3, 1), 28, false},
    {"LastOfFebruary", QDate(2026, 3, 1), 28, true},
    {"NoLeapDay", QDate(2026, 3, 1), 29, false},
    {"NoCenturyRule", QDate(2100, 3, 1), 29, true},
    {"LastOfDecember", QDate(2027, 1, 1), 31, true},
    {"LastOfApril", QDate(2026, 5, 1), 30, true},
    {"AprilHasNo31", QDate(2026, 5, 1), 31, false},
    {"FirstToSecond", QDate(2026, 5, 2), 1, true},
    {"ZeroIsNeverYesterday", QDate(2026, 5, 1), 0, false},
};

INSTANTIATE_TEST_SUITE_P(Table, MinMaxMonth, testing::ValuesIn(kMonthCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(MinMaxStore, DayThatIsNoNumberCountsAsNone)
{
    for (const QByteArray day : {"", "x", "7x", "99999", "-7"}) {
        ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=" + day
                                 + "\n[DAY7]\nMIN=1\nMAX=2\n[DAY-7]\n"
                                   "MIN=1\nMAX=2\n[DAY0]\nMIN=1\nMAX=2\n",
                             QDate(2026, 3, 7)),
                    kNeutral);
        EXPECT_EQ(Stored(u"GENERAL", u"CURRDAY"), QString("7"));
    }
}

TEST_F(MinMaxStore, DayIsAWholeNumberInAnyForm)
{
    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY= +7.0[SP]\n[DAY7]\nMIN=1\nMAX=2\n", QDate(2026, 3, 7)),
                {1, 2, 1000, -1000});
}

TEST_F(MinMaxStore, StoredTemperatureIsTheLeadingNumber)
{
    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=7\nPREVDAY=6\n[DAY7]\nMIN=[TAB]-4.5 F\nMAX=warm\n"
                         "[DAY6]\nMIN=\nMAX=1E2\n",
                         QDate(2026, 3, 7)),
                {-4.5, 0, 0, 100});
}

TEST_F(MinMaxStore, StoredTemperatureTooLargeLeavesTheNeutralValue)
{
    ExpectPairs(LoadFrom("[GENERAL]\nCURRDAY=7\nPREVDAY=6\n[DAY7]\nMIN=1E999\nMAX=2\n"
                         "[DAY6]\nMIN=3\nMAX=-1E999\n",
                         QDate(2026, 3, 7)),
                {1000, 2, 3, -1000});
}

TEST_F(MinMaxStore, FirstReadingSetsBothEnds)
{
    MinMaxTemps minMax{.MinMaxDay = 7};

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 68.4);

    ExpectPairs(minMax, {68.4, 68.4, 1000, -1000});
    EXPECT_EQ(folder.Bytes("m.ini"), QByteArray("[DAY7]\r\nMIN=68.4\r\nMAX=68.4\r\n"));
}

TEST_F(MinMaxStore, ReadingsWidenThePair)
{
    MinMaxTemps minMax{
        .TodayMinTemp = 50, .TodayMaxTemp = 60, .PrevMinTemp = 1, .PrevMaxTemp = 2, .MinMaxDay = 7};

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 55);
    ExpectPairs(minMax, {50, 60, 1, 2});
    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 49.9);
    ExpectPairs(minMax, {49.9, 60, 1, 2});
    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 60.1);

    ExpectPairs(minMax, {49.9, 60.1, 1, 2});
    EXPECT_EQ(folder.Bytes("m.ini"), QByteArray("[DAY7]\r\nMIN=49.9\r\nMAX=60.1\r\n"));
}

TEST_F(MinMaxStore, ReadingEqualToAnEndWritesItAgain)
{
    MinMaxTemps minMax{.TodayMinTemp = 50, .TodayMaxTemp = 60, .MinMaxDay = 7};
    folder.Write("m.ini", "[DAY7]\r\nMIN=0\r\nMAX=0\r\n");

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 60);

    ExpectPairs(minMax, {50, 60, 1000, -1000});
    EXPECT_EQ(folder.Bytes("m.ini"), QByteArray("[DAY7]\r\nMIN=50\r\nMAX=60\r\n"));
}

TEST_F(MinMaxStore, FirstReadingAfterARestartComparesWithTheLoadedPair)
{
    MinMaxTemps minMax =
        LoadFrom("[GENERAL]\nCURRDAY=7\n[DAY7]\nMIN=40\nMAX=60\n", QDate(2026, 3, 7));

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 50);

    ExpectPairs(minMax, {40, 60, 1000, -1000});
    EXPECT_EQ(Stored(u"DAY7", u"MIN"), QString("40"));
}

TEST_F(MinMaxStore, NewDayRollsThePairsOver)
{
    MinMaxTemps minMax{.TodayMinTemp = 40,
                       .TodayMaxTemp = 60,
                       .PrevMinTemp = 35,
                       .PrevMaxTemp = 70.5,
                       .MinMaxDay = 7};

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 8), 45);

    ExpectPairs(minMax, {45, 45, 40, 60});
    EXPECT_EQ(minMax.MinMaxDay, 8);
    EXPECT_EQ(folder.Bytes("m.ini"),
              QByteArray("[DAY7]\r\nMIN=35\r\nMAX=70.5\r\n[DAY8]\r\nMIN=45\r\nMAX=45\r\n"
                         "[GENERAL]\r\nPREVDAY=7\r\nCURRDAY=8\r\n"));
}

TEST_F(MinMaxStore, RolloverDoesNotLookAtTheGap)
{
    MinMaxTemps minMax{.TodayMinTemp = 40, .TodayMaxTemp = 60, .MinMaxDay = 7};

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 6, 20), 45);

    ExpectPairs(minMax, {45, 45, 40, 60});
    EXPECT_EQ(Stored(u"DAY7", u"MIN"), QString("1000"));
    EXPECT_EQ(Stored(u"DAY7", u"MAX"), QString("-1000"));
    EXPECT_EQ(Stored(u"GENERAL", u"PREVDAY"), QString("7"));
    EXPECT_EQ(Stored(u"GENERAL", u"CURRDAY"), QString("20"));
}

TEST_F(MinMaxStore, SameDayNumberOfAnotherMonthIsTheSameDay)
{
    MinMaxTemps minMax{.TodayMinTemp = 40, .TodayMaxTemp = 60, .MinMaxDay = 7};

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 4, 7), 45);

    ExpectPairs(minMax, {40, 60, 1000, -1000});
}

TEST_F(MinMaxStore, RestartAfterARolloverFindsTheDayBeforeYesterday)
{
    // A rollover files the older pair under the day that has ended, where the next start finds it.
    MinMaxTemps minMax{.TodayMinTemp = 40,
                       .TodayMaxTemp = 60,
                       .PrevMinTemp = 35,
                       .PrevMaxTemp = 70,
                       .MinMaxDay = 7};
    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 8), 45);

    MinMaxTemps restarted;
    LoadMinMaxTemps(restarted, Ini(), QDate(2026, 3, 8));

    ExpectPairs(restarted, {45, 45, 35, 70});
}

TEST_F(MinMaxStore, TracesTheReading)
{
    MinMaxTemps minMax{.TodayMinTemp = 40, .TodayMaxTemp = 60.25, .MinMaxDay = 7};
    const RecordedTrace trace;

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 8), 45.5);

    EXPECT_EQ(trace.lines, QStringList{"CheckMinMaxTemp(45.5) currDay=8 MinMaxDay=7 TodayMin=45.5 "
                                       "TodayMax=45.5 PrevMin=40 PrevMax=60.25"});
}

TEST_F(MinMaxStore, NumbersAreWrittenInTheShortestForm)
{
    MinMaxTemps minMax{.MinMaxDay = 7};

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 0.7 + 0.1);

    EXPECT_EQ(Stored(u"DAY7", u"MIN"), QString("0.8"));
}

TEST_F(MinMaxStore, OlderDaysStay)
{
    const QByteArray older = "[DAY1]\nMIN=1\nMAX=2\n[DAY31]\nMIN=3\nMAX=4\n";
    folder.Write("m.ini", older);
    MinMaxTemps minMax{.MinMaxDay = 7};

    CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 7), 5);

    EXPECT_EQ(folder.Bytes("m.ini"), older + "[DAY7]\r\nMIN=5\r\nMAX=5\r\n");
}

TEST_F(MinMaxStore, ResetTouchesTodayOnly)
{
    MinMaxTemps minMax{.TodayMinTemp = 40,
                       .TodayMaxTemp = 60,
                       .PrevMinTemp = 35,
                       .PrevMaxTemp = 70,
                       .MinMaxDay = 7};
    folder.Write("m.ini", "[DAY6]\nMIN=35\nMAX=70\n[DAY7]\nMIN=40\nMAX=60\n");

    ResetTodayMinMax(minMax, Ini());

    ExpectPairs(minMax, {1000, -1000, 35, 70});
    EXPECT_EQ(minMax.MinMaxDay, 7);
    EXPECT_EQ(folder.Bytes("m.ini"),
              QByteArray("[DAY6]\nMIN=35\nMAX=70\n[DAY7]\nMIN=1000\r\nMAX=-1000\r\n"));
}

TEST_F(MinMaxStore, EachRoutineIsOneCommitAndGoesOnWithoutIt)
{
    // A failed commit is traced, so the lines show how many there were.
    ASSERT_TRUE(QDir().mkdir(folder.Path("m.ini")));
    MinMaxTemps minMax;

    {
        const RecordedTrace trace;
        LoadMinMaxTemps(minMax, Ini(), QDate(2026, 3, 7));
        EXPECT_EQ(trace.lines.size(), 1);
    }
    {
        const RecordedTrace trace;
        CheckMinMaxTemp(minMax, Ini(), QDate(2026, 3, 8), 50);
        EXPECT_EQ(trace.lines.size(), 2); // and the reading's line
    }
    {
        const RecordedTrace trace;
        ResetTodayMinMax(minMax, Ini());
        EXPECT_EQ(trace.lines.size(), 1);
    }
    ExpectPairs(minMax, kNeutral);
    EXPECT_EQ(minMax.MinMaxDay, 8);
}

TEST(DaysInPreviousMonth, FollowsTheCalendar)
{
    const std::array<qint16, 12> expected{31, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30};
    for (qint16 month = 1; month <= 12; ++month)
        EXPECT_EQ(DaysInPreviousMonth(month, 2026), expected[static_cast<std::size_t>(month - 1)]);
}

TEST(DaysInPreviousMonth, FebruaryHasALeapDayInEveryFourthYear)
{
    EXPECT_EQ(DaysInPreviousMonth(3, 2028), 29);
    EXPECT_EQ(DaysInPreviousMonth(3, 2027), 28);
    EXPECT_EQ(DaysInPreviousMonth(3, 2000), 29);
    EXPECT_EQ(DaysInPreviousMonth(3, 2100), 29); // no century rule
}

TEST(DaysInPreviousMonth, IsZeroForNoMonth)
{
    EXPECT_EQ(DaysInPreviousMonth(0, 2026), 0);
    EXPECT_EQ(DaysInPreviousMonth(13, 2026), 0);
    EXPECT_EQ(DaysInPreviousMonth(-1, 2026), 0);
}

} // namespace
