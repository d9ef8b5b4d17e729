#include "support/qt_printers.h"
#include "weather/date_time_text.h"
#include "weather/utc_to_local.h"

#include <gtest/gtest.h>

namespace {

constexpr int kThisYear = 2026;

QString ReadBack(const QString &text)
{
    const std::optional<Moment> moment = ParseDateTime(text, kThisYear);
    return moment ? DateTimeText(*moment) : "none";
}

struct DateCase
{
    const char *name;
    QString text = {};
    QString expected = {};
};

class DateTimes : public testing::TestWithParam<DateCase>
{
};

TEST_P(DateTimes, AreRead)
{
    EXPECT_EQ(ReadBack(GetParam().text), GetParam().expected);
}

const DateCase kCases[] = {
    {.name = "UsWithHalfDay", .text = "11/5/2019 9:07 PM", .expected = "11/5/2019 9:07:00 PM"},
    {.name = "YearFirst", .text = "2019-11-05 21:07", .expected = "11/5/2019 9:07:00 PM"},
    {.name = "YearFirstWithSlashes", .text = "2019/11/05", .expected = "11/5/2019"},
    {.name = "NameInTheMiddle", .text = "5-Nov-2019 21:07", .expected = "11/5/2019 9:07:00 PM"},
    {.name = "DayNameYear", .text = "5 Nov 2019", .expected = "11/5/2019"},
    {.name = "FullNameWithComma", .text = "November 5, 2019", .expected = "11/5/2019"},
    {.name = "NameOfAnyCase", .text = "nOV 5 2019", .expected = "11/5/2019"},
    {.name = "BlanksBetween", .text = "11 5 2019", .expected = "11/5/2019"},
    {.name = "DayFirstWhereNoMonthCanBe", .text = "20/11/2019", .expected = "11/20/2019"},
    {.name = "MidnightHasNoTime", .text = "11/5/2019 0:00", .expected = "11/5/2019"},
    {.name = "TimeAheadOfTheDate", .text = "21:07 11/5/2019", .expected = "11/5/2019 9:07:00 PM"},
    {.name = "BareTime", .text = "21:07", .expected = "9:07:00 PM"},
    {.name = "HalfDayWithoutBlank", .text = "9:07PM", .expected = "9:07:00 PM"},
    {.name = "HourAndHalfDay", .text = "9 pm", .expected = "9:00:00 PM"},
    {.name = "Seconds", .text = "9:07:33", .expected = "9:07:33 AM"},
    {.name = "PmAboveTwelveIsIgnored", .text = "21:07 PM", .expected = "9:07:00 PM"},
    {.name = "TwelveAm", .text = "12:30 AM", .expected = "12:30:00 AM"},
    {.name = "TwelvePm", .text = "12:30 PM", .expected = "12:30:00 PM"},
    {.name = "BareMidnight", .text = "0:00", .expected = "12:00:00 AM"},
    {.name = "PointBetweenHourAndMinute", .text = "13.45", .expected = "1:45:00 PM"},
    {.name = "DecimalTextInRangeIsATime", .text = "10.30", .expected = "10:30:00 AM"},
    {.name = "ExtraBlanks", .text = "  11/5/2019   9:07   PM ", .expected = "11/5/2019 9:07:00 PM"},
    {.name = "WithoutAYearThisOne", .text = "11/5", .expected = "11/5/2026"},
    {.name = "NameWithoutAYear", .text = "Nov 5", .expected = "11/5/2026"},
    {.name = "TwoDigitYear", .text = "11/5/19", .expected = "11/5/2019"},
    {.name = "TwoDigitYearOf1900s", .text = "11/5/85", .expected = "11/5/1985"},
    {.name = "YearBelowOneThousand", .text = "0987-11-05", .expected = "11/5/0987"},
    {.name = "YearBelowOneHundred", .text = "11/5/0099 0:01", .expected = "11/5/0099 12:01:00 AM"},
    {.name = "CommaAheadOfTheTime", .text = "1/2/2008, 3:04 PM", .expected = "1/2/2008 3:04:00 PM"},
    {.name = "NameAndTwoCommas",
     .text = "Nov 5, 2019, 9:07 PM",
     .expected = "11/5/2019 9:07:00 PM"},
    {.name = "NameAndCommaAheadOfTheTime",
     .text = "Nov 1 2016, 3:58 pm",
     .expected = "11/1/2016 3:58:00 PM"},
    {.name = "YearFirstAndCommaAheadOfTheTime",
     .text = "2019-11-05 ,21:07:33",
     .expected = "11/5/2019 9:07:33 PM"},
    {.name = "NameAndCommaWithoutAYear", .text = "Nov 5, 9 pm", .expected = "11/5/2026 9:00:00 PM"},
    {.name = "CommaWithoutAYear", .text = "11/5, 13.45", .expected = "11/5/2026 1:45:00 PM"},
    {.name = "LeapDay", .text = "2/29/2024", .expected = "2/29/2024"},

    {.name = "HourTooLarge", .text = "25:07", .expected = "none"},
    {.name = "MinuteTooLarge", .text = "21:60", .expected = "none"},
    {.name = "SecondTooLarge", .text = "21:07:60", .expected = "none"},
    {.name = "IsoWithT", .text = "2019-11-05T21:07", .expected = "none"},
    {.name = "TrailingZ", .text = "2019-11-05 21:07Z", .expected = "none"},
    {.name = "Rfc822", .text = "Tue, 05 Nov 2019 21:07:00 GMT", .expected = "none"},
    {.name = "ZoneName", .text = "11/5/2019 21:07 EST", .expected = "none"},
    {.name = "Offset", .text = "11/5/2019 21:07 +0100", .expected = "none"},
    {.name = "PartsOfASecond", .text = "21:07:00.5", .expected = "none"},
    {.name = "ImpossibleDay", .text = "11/31/2019", .expected = "none"},
    {.name = "NoLeapDay", .text = "2/29/2023", .expected = "none"},
    {.name = "EightDigits", .text = "20191105", .expected = "none"},
    {.name = "Empty", .text = "", .expected = "none"},
    {.name = "Blanks", .text = "   ", .expected = "none"},
    {.name = "LoneNumber", .text = "11", .expected = "none"},
    {.name = "DecimalTextOutOfRange", .text = "72.5", .expected = "none"},
    {.name = "Word", .text = "Sunny", .expected = "none"},
    {.name = "TrailingSeparator", .text = "11/5/", .expected = "none"},
    {.name = "DoubledSeparator", .text = "11//5/2019", .expected = "none"},
    {.name = "CommaBetweenNumbers", .text = "11,5,2019", .expected = "none"},
    {.name = "CommaBetweenNumbersAheadOfATime", .text = "11,5, 21:07", .expected = "none"},
    {.name = "CommaAheadOfATimeThatIsNone", .text = "11/5/2019, 25:07", .expected = "none"},
    {.name = "CommaAheadOfALongHour", .text = "Nov 5, 2019.30", .expected = "none"},
    {.name = "TwoCommasAheadOfTheTime", .text = "11/5/2019,, 21:07", .expected = "none"},
    {.name = "OtherSeparatorAheadOfTheTime", .text = "11/5/2019- 21:07", .expected = "none"},
    {.name = "SeparatorAndCommaAheadOfTheTime", .text = "11/5/, 21:07", .expected = "none"},
    {.name = "CommaBehindTheDate", .text = "11/5/2019,", .expected = "none"},
    {.name = "CommaBehindTheTime", .text = "11/5/2019, 21:07,", .expected = "none"},
    {.name = "CommaBehindTheTimeAheadOfTheDate", .text = "21:07, 11/5/2019", .expected = "none"},
    {.name = "CommaAheadOfABareTime", .text = ", 21:07", .expected = "none"},
    {.name = "CommaBetweenANameAndATime", .text = "Nov, 21:07", .expected = "none"},
    {.name = "CommaBetweenADayAndATime", .text = "11, 21:07", .expected = "none"},
    {.name = "TwoTimesAndAComma", .text = "21:07 11/5/2019, 21:08", .expected = "none"},
    {.name = "ThreeDigitYear", .text = "11/5/201", .expected = "none"},
    {.name = "TextBehind", .text = "11/5/2019 21:07 x", .expected = "none"},
    {.name = "TwoTimes", .text = "21:07 11/5/2019 21:08", .expected = "none"},
    {.name = "UmlautIsNoLetterOfAMonth",
     .text = QString::fromUtf8("5 M\u00e4rz 2019"),
     .expected = "none"},
};

INSTANTIATE_TEST_SUITE_P(Table, DateTimes, testing::ValuesIn(kCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(ConvertUtcToLocal, ShiftsByTheOffsetInEffect)
{
    // Bias 360 minutes with daylight time in effect (-60): five hours behind UTC.
    const Moment utc = *ParseDateTime(u"11/5/2019 2:30 AM", kThisYear);

    EXPECT_EQ(DateTimeText(ConvertUtcToLocal(utc, -5 * 3600)), "11/4/2019 9:30:00 PM");
}

TEST(ConvertUtcToLocal, KnowsHalfHours)
{
    const Moment utc = *ParseDateTime(u"11/5/2019 2:30 AM", kThisYear);

    EXPECT_EQ(DateTimeText(ConvertUtcToLocal(utc, 330 * 60)), "11/5/2019 8:00:00 AM");
}

TEST(ConvertUtcToLocal, KeepsABareTimeBareWithinTheDay)
{
    const Moment utc = *ParseDateTime(u"21:07", kThisYear);

    EXPECT_EQ(DateTimeText(ConvertUtcToLocal(utc, -5 * 3600)), "4:07:00 PM");
    EXPECT_EQ(DateTimeText(ConvertUtcToLocal(utc, 5 * 3600)), "12/31/1899 2:07:00 AM");
}

TEST(ToMoment, IsCutToSeconds)
{
    const auto text = [](QTime time) {
        return DateTimeText(ToMoment(QDateTime(QDate(2026, 12, 31), time)));
    };

    EXPECT_EQ(text(QTime(15, 5, 9)), "12/31/2026 3:05:09 PM");
    EXPECT_EQ(text(QTime(15, 5, 9, 500)), "12/31/2026 3:05:09 PM");
    EXPECT_EQ(text(QTime(23, 59, 59, 700)), "12/31/2026 11:59:59 PM");
    EXPECT_EQ(text(QTime(23, 59, 59, 999)), "12/31/2026 11:59:59 PM");
    EXPECT_EQ(text(QTime(0, 0)), "12/31/2026");
    EXPECT_EQ(text(QTime(0, 0, 0, 999)), "12/31/2026");
    EXPECT_EQ(text(QTime(0, 0, 1)), "12/31/2026 12:00:01 AM");
}

} // namespace
