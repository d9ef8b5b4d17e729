#include "demo_host/zone_rows.h"
#include "forecast/forecast_text.h"
#include "support/qt_printers.h"
#include "zones/zone_header.h"
#include "zones/zone_listing.h"

#include <gtest/gtest.h>

namespace {

const QDate kToday(2026, 3, 14);
const QDateTime kEightInTheEvening(kToday, QTime(20, 0), Qt::UTC);

QString Page(QStringView state)
{
    return ZoneListingPage(*FindForecastState(state), kEightInTheEvening);
}

QString Row(const QString &name, const QString &date, const QString &size)
{
    return QString("\n<tr><td><a href=\"%1\">%1</a></td><td align=\"right\">%2  </td>"
                   "<td align=\"right\">%3</td></tr>\n")
        .arg(name, date, size);
}

TEST(ZoneListingPage, HasOneRowPerFile)
{
    const QString page = Page(u"md");

    EXPECT_TRUE(page.contains(Row("mdz011.txt", "14-Mar-2026 20:00", "1.5K"))); // 1,516 bytes
    EXPECT_EQ(page.count("<tr><td><a href=\""), 29); // 28 files and the way up
    EXPECT_TRUE(page.contains("\"dcz001.txt\""));
    EXPECT_TRUE(page.contains("\"MDZ025.TXT\""));
}

TEST(ZoneListingPage, HasRowsOfOtherDays)
{
    const QString page = Page(u"md");

    EXPECT_TRUE(page.contains("\"mdz003.txt\">mdz003.txt</a></td><td align=\"right\">13-Mar-2026"));
    EXPECT_TRUE(page.contains("\"mdz006.txt\">mdz006.txt</a></td><td align=\"right\">12-Mar-2026"));
    EXPECT_TRUE(page.contains("\"mdz008.txt\">mdz008.txt</a></td><td align=\"right\">11-Mar-2026"));
    EXPECT_TRUE(page.contains("\"mdz009.txt\">mdz009.txt</a></td><td align=\"right\">15-Mar-2026"));
    EXPECT_TRUE(page.contains("\"mdz024.txt\">mdz024.txt</a></td><td align=\"right\">18-Jun-2023"));
}

TEST(ZoneListingPage, YieldsTheLivingZonesOfTheState)
{
    // Every eighth zone is dead.
    EXPECT_EQ(ZoneFileNames(Page(u"md"), "md", kToday).size(), 22);  // of 25
    EXPECT_EQ(ZoneFileNames(Page(u"wa"), "wa", kToday).size(), 27);  // of 30
    EXPECT_EQ(ZoneFileNames(Page(u"tx"), "tx", kToday).size(), 114); // of 130
}

TEST(ZoneFile, IsThereForEveryRowAndNamesItsPlaces)
{
    for (const ForecastState &state : ForecastStates()) {
        const QString code = state.code.toString().toLower();
        for (const QString &name : ZoneFileNames(Page(code), code, kToday)) {
            SCOPED_TRACE(name.toStdString());
            const auto file = ZoneFile(state, name, kEightInTheEvening);
            ASSERT_TRUE(file.has_value());

            const auto entry = ZoneEntry(*file, name);
            ASSERT_TRUE(entry.has_value());
            EXPECT_TRUE(entry->contains("including the cities of", Qt::CaseInsensitive));

            const QString forecast = CleanForecast(*file, name.first(6));
            EXPECT_TRUE(forecast.contains("\r\n\r\nTONIGHT. ")) << forecast.toStdString();
            EXPECT_FALSE(forecast.contains("Expires"));
            EXPECT_FALSE(forecast.contains("HIGH   ")); // the table
        }
    }
}

TEST(ZoneFile, GivesTheEntryOfTheZone)
{
    const auto md = ZoneFile(*FindForecastState(u"md"), u"mdz011.txt", kEightInTheEvening);
    const auto wa = ZoneFile(*FindForecastState(u"wa"), u"waz003.txt", kEightInTheEvening);

    // A hyphen parts the names from the next line, a comma at its end does not.
    EXPECT_EQ(ZoneEntry(md.value_or(""), "mdz011.txt"),
              "MDZ011:  Western Highbridge County, Including the cities of Deerbridge, Elmbrook, "
              "Foxdale, Greenfield,and Highford");
    EXPECT_EQ(ZoneEntry(wa.value_or(""), "waz003.txt"),
              "WAZ003:  WESTERN MAPLEVIEW COUNTY-NORTHERN WINDBROOK COUNTY, INCLUDING THE CITIES "
              "OF, COLDFORD, DEERHAVEN, ELMMONT, FOXPORT, AND GREENTON");
}

TEST(ZoneFile, IsThereInItsOwnFolderOnly)
{
    const ForecastState &state = *FindForecastState(u"md");

    EXPECT_FALSE(ZoneFile(state, u"waz003.txt", kEightInTheEvening).has_value());
    EXPECT_FALSE(ZoneFile(state, u"mdz026.txt", kEightInTheEvening).has_value());
    EXPECT_FALSE(ZoneFile(state, u"mdz011.TXT", kEightInTheEvening).has_value());
    EXPECT_TRUE(ZoneFile(state, u"dcz001.txt", kEightInTheEvening).has_value());
    EXPECT_TRUE(ZoneFile(state, u"MDZ025.TXT", kEightInTheEvening).has_value());
}

} // namespace
