#include "forecast/forecast_schedule.h"
#include "support/qt_printers.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

constexpr int kDay = 86400;
constexpr std::array<bool, 4> kAll{true, true, true, true};

constexpr int At(int hour, int minute = 0, int second = 0)
{
    return hour * 3600 + minute * 60 + second;
}

/// The label with nothing pending and a valid location.
QString Label(int now, const std::array<bool, 4> &checked)
{
    std::array<bool, 4> fired{};
    return CheckForecastSchedule(
               fired,
               {.now = now, .zoneCode = u"MDZ011", .stateCode = u"MD", .slotChecked = checked})
        .text;
}

/// A window that checks its schedule once a second.
class ForecastSchedule : public testing::Test
{
protected:
    ScheduleOutcome Tick(int now)
    {
        input.now = now;
        return CheckForecastSchedule(fired, input);
    }

    /// The seconds of [from, until) in which a request was started.
    std::vector<int> Requests(int from, int until)
    {
        std::vector<int> times;
        for (int now = from; now < until; ++now) {
            if (Tick(now % kDay).startRequest)
                times.push_back(now);
        }
        return times;
    }

    std::array<bool, 4> fired{};
    ScheduleInput input{.zoneCode = u"MDZ011", .stateCode = u"MD", .slotChecked = kAll};
};

using Times = std::vector<int>;

// --- what the label says

struct LabelCase
{
    const char *name;
    int now = 0;
    std::array<bool, 4> checked{};
    QString expected = {};
};

void PrintTo(const LabelCase &c, std::ostream *out)
{
    *out << c.name;
}

class ScheduleLabel : public testing::TestWithParam<LabelCase>
{
};

TEST_P(ScheduleLabel, WordsTheWait)
{
    EXPECT_EQ(Label(GetParam().now, GetParam().checked), GetParam().expected);
}

const LabelCase kLabelCases[] = {
    {"SixPmAtSixPm", At(18), {false, false, false, true}, "Next Update in 24:00:00"},
    {"SixPmASecondLater", At(18, 0, 1), {false, false, false, true}, "Next Update in 23:59:59"},
    {"SixPmASecondAhead", At(17, 59, 59), {false, false, false, true}, "Next Update in 0:01"},
    {"MidnightShortlyAhead", At(23, 59, 30), {true, false, false, false}, "Next Update in 0:30"},
    {"MidnightAtMidnight", 0, {true, false, false, false}, "Next Update in 24:00:00"},
    {"AllAtMidnight", 0, kAll, "Next Update in 6:00:00"},
    {"AllJustAfterSix", At(6, 0, 5), kAll, "Next Update in 5:59:55"},
    {"AllAtSix", At(6), kAll, "Next Update in 6:00:00"},
    {"AllAtNoon", At(12), kAll, "Next Update in 6:00:00"},
    {"AllInTheEvening", At(18, 0, 1), kAll, "Next Update in 5:59:59"},
    {"OneHour", At(5), kAll, "Next Update in 1:00:00"},
    {"BelowOneHour", At(5, 0, 1), kAll, "Next Update in 59:59"},
    {"NightToMidnight", At(1), {true, false, false, false}, "Next Update in 23:00:00"},
    {"NightToNoon", At(1), {true, false, true, false}, "Next Update in 11:00:00"},
    {"NightToEvening", At(1), {true, false, false, true}, "Next Update in 17:00:00"},
    {"MorningToMidnight", At(7), {true, true, false, false}, "Next Update in 17:00:00"},
    {"MorningToNextMorning", At(7), {false, true, false, false}, "Next Update in 23:00:00"},
    {"AfternoonToNextMorning", At(13), {false, true, true, false}, "Next Update in 17:00:00"},
    {"AfternoonToNextNoon", At(13), {false, false, true, false}, "Next Update in 23:00:00"},
    {"EveningToNextMorning", At(19), {false, true, true, true}, "Next Update in 11:00:00"},
    {"EveningToNextNoon", At(19), {false, false, true, true}, "Next Update in 17:00:00"},
    {"EveningToNextEvening", At(19), {false, false, false, true}, "Next Update in 23:00:00"},
    {"NoneChecked", At(7), {}, "No Schedule Selected"},
};

INSTANTIATE_TEST_SUITE_P(Table, ScheduleLabel, testing::ValuesIn(kLabelCases),
                         [](const auto &test) { return std::string(test.param.name); });

/// The seconds that a label counts down; -1 for any other text.
int SecondsOf(const QString &label)
{
    const QString prefix = "Next Update in ";
    if (!label.startsWith(prefix))
        return -1;
    int seconds = 0;
    for (const QString &part : label.sliced(prefix.size()).split(':'))
        seconds = seconds * 60 + part.toInt();
    return seconds;
}

TEST(ScheduleLabelProperty, IsTheTrueWaitInEverySecondOfADayForEveryChoice)
{
    for (unsigned choice = 1; choice < 16; ++choice) {
        std::array<bool, 4> checked{};
        for (std::size_t i = 0; i < checked.size(); ++i)
            checked[i] = (choice >> i & 1U) != 0;
        for (int now = 0; now < kDay; ++now) {
            const QString label = Label(now, checked);
            const int wait = SecondsOf(label);
            // Counted afresh: never negative, never more than a day, and ending at a checked slot.
            ASSERT_GE(wait, 1) << label.toStdString() << " at " << now;
            ASSERT_LE(wait, kDay) << label.toStdString() << " at " << now;
            ASSERT_EQ((now + wait) % At(6), 0) << label.toStdString() << " at " << now;
            ASSERT_TRUE(checked[std::size_t((now + wait) % kDay / At(6))]) << now;
            for (int slot = (now / At(6) + 1) * At(6); slot < now + wait; slot += At(6))
                ASSERT_FALSE(checked[std::size_t(slot % kDay / At(6))]) << now;
        }
    }
}

// --- when it fires

TEST_F(ForecastSchedule, FiresOnceInEachOfTheFourWindowsOfADay)
{
    EXPECT_EQ(Requests(0, kDay), (Times{0, At(6), At(12), At(18)}));
}

TEST_F(ForecastSchedule, FiresWhetherTheBoxesAreCheckedOrNot)
{
    input.slotChecked = {};

    EXPECT_EQ(Requests(0, 3 * kDay),
              (Times{0, At(6), At(12), At(18), kDay, kDay + At(6), kDay + At(12), kDay + At(18),
                     2 * kDay, 2 * kDay + At(6), 2 * kDay + At(12), 2 * kDay + At(18)}));
    EXPECT_EQ(Tick(At(18)).text, "No Schedule Selected");
}

TEST_F(ForecastSchedule, FiresUpToTenSecondsLate)
{
    for (const int start : {0, At(6), At(12), At(18)}) {
        fired = {};
        EXPECT_TRUE(Tick(start + 10).startRequest) << start;
        fired = {};
        EXPECT_FALSE(Tick(start + 11).startRequest) << start;
        EXPECT_FALSE(Tick((start + kDay - 1) % kDay).startRequest) << start;
    }
}

TEST_F(ForecastSchedule, ShowsTheWaitForTheSlotAfterTheOneThatFires)
{
    const ScheduleOutcome outcome = Tick(At(6, 0, 5));

    EXPECT_TRUE(outcome.startRequest);
    EXPECT_EQ(outcome.text, "Next Update in 5:59:55");
    EXPECT_FALSE(Tick(At(6, 0, 6)).startRequest);
}

TEST_F(ForecastSchedule, ForgetsWhatFiredOutsideAllWindows)
{
    EXPECT_TRUE(Tick(At(6, 0, 5)).startRequest);
    EXPECT_EQ(fired, (std::array{false, true, false, false}));

    EXPECT_FALSE(Tick(At(6, 0, 11)).startRequest);
    EXPECT_EQ(fired, (std::array{false, false, false, false}));
}

TEST_F(ForecastSchedule, LosesASlotWhoseLocationIsMissing)
{
    input.zoneCode = u"";
    EXPECT_FALSE(Tick(At(6)).startRequest);
    EXPECT_EQ(Tick(At(6)).text, "Next Update in 6:00:00"); // "Invalid Location" goes away

    input.zoneCode = u"MDZ011"; // typed too late
    EXPECT_EQ(Requests(At(6, 0, 1), At(12)), Times());
}

TEST_F(ForecastSchedule, TakesSpacesForAMissingLocation)
{
    input.zoneCode = u"      ";
    EXPECT_FALSE(Tick(At(6)).startRequest);
    EXPECT_TRUE(fired[1]);

    input = {.zoneCode = u"MDZ011", .stateCode = u"  ", .slotChecked = kAll};
    EXPECT_FALSE(Tick(At(12)).startRequest);
    EXPECT_TRUE(fired[2]);
}

// --- the codes

TEST_F(ForecastSchedule, NeedsOneCodeOfItsProperLength)
{
    input.stateCode = u"OREGON";
    EXPECT_EQ(Tick(At(7)).text, "Next Update in 5:00:00");
    EXPECT_TRUE(Tick(At(6)).startRequest);

    input = {.zoneCode = u"MDZ11", .stateCode = u"MD", .slotChecked = kAll};
    EXPECT_EQ(Tick(At(7)).text, "Next Update in 5:00:00");
    EXPECT_TRUE(Tick(At(12)).startRequest);
}

TEST_F(ForecastSchedule, DoesNothingAtAllWithTwoImproperCodes)
{
    EXPECT_TRUE(Tick(At(6)).startRequest);

    input.zoneCode = u"MDZ11";
    input.stateCode = u"OREGON";
    input.countdown = 5000;
    EXPECT_EQ(Tick(At(6, 0, 11)).text, "Invalid Zone Code/State");
    EXPECT_TRUE(fired[1]); // not even reset

    input.countdown = 0;
    EXPECT_FALSE(Tick(At(12)).startRequest);
    EXPECT_FALSE(fired[2]);
}

TEST_F(ForecastSchedule, MeasuresTheCodesWithTheirSpaces)
{
    input.zoneCode = u" MDZ011";
    input.stateCode = u"MD ";

    EXPECT_EQ(Tick(At(7)).text, "Invalid Zone Code/State");
}

// --- a request that is pending

TEST_F(ForecastSchedule, CountsDownToAPendingRequest)
{
    const std::pair<qint16, QString> labels[] = {
        {5000, "Next Update in 0:05"},  {4750, "Next Update in 0:04"},
        {1000, "Next Update in 0:01"},  {250, "Next Update in 0:00"},
        {1, "Next Update in 0:00"},     {30000, "Next Update in 0:30"},
        {32767, "Next Update in 0:32"}, {0, "Next Update in 1:00:00"},
    };
    for (const auto &[countdown, label] : labels) {
        input.countdown = countdown;
        EXPECT_EQ(Tick(At(5)).text, label);
    }
}

TEST_F(ForecastSchedule, DoesNotFireWhileARequestIsPending)
{
    input.countdown = 5000;
    EXPECT_EQ(Requests(At(5, 59, 58), At(6, 0, 4)), Times());

    input.countdown = 0;
    EXPECT_EQ(Requests(At(6, 0, 4), At(7)), Times{At(6, 0, 4)});
}

TEST_F(ForecastSchedule, LosesAWindowThatPassesWhileARequestIsPending)
{
    input.countdown = 15000;
    EXPECT_EQ(Requests(At(6), At(6, 0, 11)), Times());

    input.countdown = 0;
    EXPECT_EQ(Requests(At(6, 0, 11), At(12)), Times());
}

// --- clocks that jump

struct ClockChange
{
    const char *name;
    int at = 0;    ///< Local second of the day at which the clock jumps.
    int by = 0;    ///< Seconds.
    Times fires{}; ///< Local seconds of the day, in order.
};

void PrintTo(const ClockChange &c, std::ostream *out)
{
    *out << c.name;
}

class ScheduleClockChange : public testing::TestWithParam<ClockChange>
{
};

/// From 11 PM of the day before to 1 AM of the day after, second by second.
Times FiresOver(const ClockChange &change)
{
    std::array<bool, 4> fired{};
    Times fires;
    bool jumped = false;
    for (int now = -3600; now < kDay + 3600; ++now) {
        if (now == change.at && !jumped) {
            now += change.by;
            jumped = true;
        }
        const int local = (now + kDay) % kDay;
        const ScheduleOutcome outcome = CheckForecastSchedule(
            fired, {.now = local, .zoneCode = u"MDZ011", .stateCode = u"MD", .slotChecked = kAll});
        if (outcome.startRequest)
            fires.push_back(local);
        const int wait = SecondsOf(outcome.text);
        EXPECT_TRUE(wait >= 1 && wait <= At(6)) << outcome.text.toStdString();
    }
    return fires;
}

TEST_P(ScheduleClockChange, FiresOnceForEachPass)
{
    EXPECT_EQ(FiresOver(GetParam()), GetParam().fires);
}

const ClockChange kClockChanges[] = {
    {"None", kDay, 0, {0, At(6), At(12), At(18), 0}},
    {"NewYorkInSpring", At(2), 3600, {0, At(6), At(12), At(18), 0}},
    {"NewYorkInAutumn", At(2), -3600, {0, At(6), At(12), At(18), 0}},
    // Havana changes at midnight: in spring there is none, in autumn (at 1:00) there are two.
    {"HavanaInSpring", 0, 3600, {At(6), At(12), At(18), 0}},
    {"HavanaInAutumn", At(1), -3600, {0, 0, At(6), At(12), At(18), 0}},
    {"LordHoweInSpring", At(2), 1800, {0, At(6), At(12), At(18), 0}},
    {"LordHoweInAutumn", At(2), -1800, {0, At(6), At(12), At(18), 0}},
    {"SetForwardOverAWindow", At(11, 59), 120, {0, At(6), At(18), 0}},
    {"SetForwardIntoAWindow", At(11, 59), 65, {0, At(6), At(12, 0, 5), At(18), 0}},
    {"SetForwardFromAWindowIntoTheNext", At(6, 0, 3), At(6), {0, At(6), At(12, 0, 3), At(18), 0}},
    {"SetBackWithinAWindow", At(12, 0, 6), -4, {0, At(6), At(12), At(18), 0}},
    {"SetBackAheadOfAWindow", At(12, 0, 6), -10, {0, At(6), At(12), At(12), At(18), 0}},
    {"SetBackByADayPart", At(13), -At(8), {0, At(6), At(12), At(6), At(12), At(18), 0}},
};

INSTANTIATE_TEST_SUITE_P(Table, ScheduleClockChange, testing::ValuesIn(kClockChanges),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(ForecastSchedule, IsLostWithoutATickInTheWindow)
{
    EXPECT_FALSE(Tick(At(5, 59, 59)).startRequest);
    EXPECT_FALSE(Tick(At(6, 0, 11)).startRequest); // the program was stalled for twelve seconds
}

} // namespace
