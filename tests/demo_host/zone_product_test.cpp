#include "demo_host/zone_product.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

const QDateTime kEightInTheEvening(QDate(2026, 3, 14), QTime(20, 0), Qt::UTC); // a Saturday

ForecastZone ZoneOf(const QString &fileName)
{
    for (const ForecastZone &zone : ForecastZones(*FindForecastState(fileName.first(2)))) {
        if (zone.fileName == fileName)
            return zone;
    }
    ADD_FAILURE() << "no zone " << fileName.toStdString();
    return ForecastZones(ForecastStates().front()).front();
}

// 3 PM in Maryland, when all temperatures are 2 degrees above those of the table: 66 by day and 45
// by night. The zone's number shifts the week: Saturday has the fourth weather of the table.
TEST(ZoneProduct, TellsSevenDays)
{
    EXPECT_EQ(ZoneProduct(ZoneOf("mdz011.txt"), kEightInTheEvening),
              "Expires:202603150800;;100011\n"
              "FPUS51 KDMA 142000\n"
              "ZFPDMA\n"
              "\n"
              "Zone Forecast Product\n"
              "Demo Host Office Harbor Point MD\n"
              "300 PM EST Sat Mar 14 2026\n"
              "\n"
              "MDZ011-150800-\n"
              "Western Highbridge County-\n"
              "Including the cities of Deerbridge, Elmbrook, Foxdale, Greenfield,\n"
              "and Highford\n"
              "300 PM EST Sat Mar 14 2026\n"
              "\n"
              "...WIND ADVISORY IN EFFECT UNTIL 6 AM EST SUNDAY FOR OPEN WATER\n"
              "AND HIGH BRIDGES...\n"
              "\n"
              ".THIS AFTERNOON...Cloudy with rain, heavy at times. Highs in the\n"
              "mid 60s. South winds 10 to 20 mph with gusts up to 35 mph,\n"
              "becoming west later. Chance of rain 90 percent.\n"
              ".TONIGHT...Cloudy with showers likely. Chance of rain 60 percent.\n"
              "Lows in the upper 40s.\n"
              ".SUNDAY...Mostly cloudy, then clearing. Highs in the lower 60s.\n"
              "Northwest winds 15 to 20 mph.\n"
              ".SUNDAY NIGHT...Mostly clear. Colder. Lows around 40.\n"
              ".MONDAY...Sunny and breezy. Highs in the lower 60s. Northwest\n"
              "winds 10 to 15 mph.\n"
              ".MONDAY NIGHT...Clear and cold. Lows in the upper 30s.\n"
              ".TUESDAY...Increasing clouds. Highs in the mid 60s. Light winds.\n"
              ".TUESDAY NIGHT...Partly cloudy. Lows in the lower 40s.\n"
              ".WEDNESDAY...Sunny. Highs in the upper 60s. West winds around 5\n"
              "mph.\n"
              ".WEDNESDAY NIGHT...Clear. Lows in the lower 40s.\n"
              ".THURSDAY...Mostly sunny. Highs in the lower 70s. Southwest winds\n"
              "5 to 10 mph.\n"
              ".THURSDAY NIGHT...Mostly clear in the evening, then partly cloudy.\n"
              "Lows in the mid 40s.\n"
              ".FRIDAY...Partly sunny with a slight chance of showers. Highs in\n"
              "the lower 70s. South winds 10 to 15 mph. Chance of rain 20\n"
              "percent.\n"
              ".FRIDAY NIGHT...Mostly cloudy. Lows in the upper 40s.\n"
              "\n"
              "$$\n");
}

// Noon in Washington: 1 degree above the table.
TEST(ZoneProduct, WritesCapitalsAndATableForWashington)
{
    const QString text = ZoneProduct(ZoneOf("waz005.txt"), kEightInTheEvening);

    EXPECT_EQ(text, text.toUpper().replace("EXPIRES:", "Expires:"));
    EXPECT_TRUE(text.contains("\n.THIS AFTERNOON...MOSTLY CLOUDY...THEN CLEARING. HIGHS IN THE\n"
                              "LOWER 50S. NORTHWEST WINDS 15 TO 20 MPH. \n"
                              ".TONIGHT...MOSTLY CLEAR. COLDER. LOWS IN THE UPPER 30S. \n"));
    EXPECT_TRUE(text.endsWith(". \n\n&&\n\n          SATURDAY\n"
                              "HIGH        55\nLOW         41\n\n$$\n"));
}

TEST(ZoneProduct, ListsTheZonesThatShareIt)
{
    const QString text = ZoneProduct(ZoneOf("waz003.txt"), kEightInTheEvening);

    EXPECT_TRUE(text.contains("\nWAZ003-004-140800-\n"
                              "WESTERN MAPLEVIEW COUNTY-NORTHERN WINDBROOK COUNTY-\n"
                              "INCLUDING THE CITIES OF...COLDFORD...DEERHAVEN...ELMMONT...\n"
                              "FOXPORT...AND GREENTON\n"
                              "1200 PM PST FRI MAR 13 2026\n\n"));
}

TEST(ZoneProduct, LacksTheEndMarkOfSomeZones)
{
    const QString text = ZoneProduct(ZoneOf("txz012.txt"), kEightInTheEvening);

    EXPECT_FALSE(text.contains("$$"));
    EXPECT_TRUE(text.endsWith(".\n\n"));
}

TEST(ZoneProduct, OfADeadZoneKeepsItsOldDate)
{
    EXPECT_TRUE(ZoneProduct(ZoneOf("mdz024.txt"), kEightInTheEvening)
                    .contains("\n300 PM EST Sun Jun 18 2023\n"));
}

struct IssueCase
{
    const char *name;
    QTime utc = {};
    const char *issued;
    const char *firstPeriod;
    const char *line; ///< Fridays have 64 degrees by day, 39 by night, and what the hour adds.
};

void PrintTo(const IssueCase &c, std::ostream *out)
{
    *out << c.name;
}

class ZoneProductIssue : public testing::TestWithParam<IssueCase>
{
};

TEST_P(ZoneProductIssue, FollowsTheHour)
{
    const QDateTime now(QDate(2026, 3, 14), GetParam().utc, Qt::UTC);

    const QString text = ZoneProduct(ZoneOf("mdz001.txt"), now);

    const QString start = GetParam().issued + QString("\n\n.") + GetParam().firstPeriod + "...";
    EXPECT_TRUE(text.contains(start)) << text.toStdString();
    EXPECT_TRUE(text.contains(QString("\n") + GetParam().line)) << text.toStdString();
}

const IssueCase kIssues[] = {
    {"Night", QTime(5, 0), "1200 AM EST Sat Mar 14 2026", "REST OF TONIGHT",
     ".FRIDAY...Increasing clouds. Highs in the mid 60s."},
    {"EarlyMorning", QTime(8, 30), "300 AM EST Sat Mar 14 2026", "TODAY",
     ".FRIDAY...Increasing clouds. Highs in the lower 60s."},
    {"LateMorning", QTime(16, 59), "900 AM EST Sat Mar 14 2026", "TODAY",
     ".FRIDAY...Increasing clouds. Highs in the mid 60s."},
    {"Noon", QTime(17, 0), "1200 PM EST Sat Mar 14 2026", "THIS AFTERNOON",
     ".FRIDAY...Increasing clouds. Highs in the mid 60s."},
    {"Evening", QTime(23, 0), "600 PM EST Sat Mar 14 2026", "TONIGHT",
     ".FRIDAY...Increasing clouds. Highs in the mid 60s."},
    {"LateEvening", QTime(4, 59), "900 PM EST Fri Mar 13 2026", "TONIGHT",
     ".TONIGHT...Partly cloudy. Lows around 40.\n"},
};

INSTANTIATE_TEST_SUITE_P(Table, ZoneProductIssue, testing::ValuesIn(kIssues),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
