#include "demo_host/text_replies.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace {

const QDateTime kEightInTheEvening(QDate(2026, 3, 14), QTime(20, 0), Qt::UTC);

/// The reply's line that begins with `start`, without its end; "none" when there is none.
QString LineOf(const QString &reply, const QString &start)
{
    for (const QString &line : reply.split('\n')) {
        if (line.trimmed().startsWith(start))
            return line.trimmed();
    }
    return "none";
}

TEST(DecodedReport, HasItsLinesInTheFixedOrder)
{
    // In Baltimore it is 3 PM: 17.0 + 6.0 C. Wind 12 * (0.75 + 0.25 * cos 15 degrees) = 11.9 KT
    // from 300 + 10 degrees, 12 * 1.150779 = 13.8 MPH. Pressure 1013.0 + cos 75 degrees = 1013.3
    // hPa, * 0.02953 = 29.92.
    EXPECT_EQ(DecodedReport(*FindStation(u"KBWI"), kEightInTheEvening),
              "Baltimore-Washington International Airport, MD (KBWI) 39-10N 076-41W 45M\n"
              "Mar 14, 2026 - 03:00 PM EST / 2026.03.14 2000 UTC\n"
              "Wind: from the NW (310 degrees) at 14 MPH (12 KT):0\n"
              "Visibility: 10 mile(s):0\n"
              "Sky conditions: mostly cloudy\n"
              "Temperature: 73.4 F (23.0 C)\n"
              "Dew Point: 48.2 F (9.0 C)\n"
              "Relative Humidity: 41%\n"
              "Pressure (altimeter): 29.92 in. Hg (1013 hPa)\n"
              "ob: KBWI 142000Z AUTO\n"
              "cycle: 20\n");
}

TEST(DecodedReport, WritesCalmWindAndRain)
{
    const QString calm = DecodedReport(*FindStation(u"EDDH"), kEightInTheEvening);
    const QString rain = DecodedReport(*FindStation(u"KSEA"), kEightInTheEvening); // noon there

    EXPECT_EQ(LineOf(calm, "Wind:"), "Wind: Calm:0");
    EXPECT_EQ(LineOf(calm, "Weather:"), "none");
    EXPECT_EQ(LineOf(rain, "Weather:"), "Weather: light rain");
}

TEST(DecodedReport, FillsAThreeDigitPressureWithAZero)
{
    // 11 AM in Fairbanks: 987.0 + cos 15 degrees = 988.0 hPa.
    EXPECT_EQ(LineOf(DecodedReport(*FindStation(u"PAFA"), kEightInTheEvening), "Pressure"),
              "Pressure (altimeter): 29.18 in. Hg (0988 hPa)");
}

TEST(DecodedReport, TellsTheWindChillOfAColdPlace)
{
    // 11 AM in Fairbanks: -18.0 + 5.0 * cos 60 degrees = -15.5 C = 4.1 F, 6 KT = 6.9 MPH.
    // 6.9047 ^ 0.16 = 1.3623; 35.74 + 0.6215 * 4.1 + (0.4275 * 4.1 - 35.75) * 1.3623 = -8.0 F.
    EXPECT_EQ(LineOf(DecodedReport(*FindStation(u"PAFA"), kEightInTheEvening), "Windchill"),
              "Windchill: -8 F (-22 C):1");
    EXPECT_EQ(LineOf(DecodedReport(*FindStation(u"KBWI"), kEightInTheEvening), "Windchill"),
              "none");
}

TEST(DecodedReport, LeavesOutWhatTheStationDoesNotReport)
{
    const QString noSky = DecodedReport(*FindStation(u"EKCH"), kEightInTheEvening);
    const QString noTemperature = DecodedReport(*FindStation(u"BIKF"), kEightInTheEvening);

    EXPECT_EQ(LineOf(noSky, "Visibility"), "none");
    EXPECT_EQ(LineOf(noSky, "Sky"), "none");
    EXPECT_NE(LineOf(noSky, "Temperature"), "none");
    EXPECT_EQ(LineOf(noTemperature, "Temperature"), "none");
    EXPECT_EQ(LineOf(noTemperature, "Dew Point"), "none");
    EXPECT_NE(LineOf(noTemperature, "Sky"), "none");
}

TEST(CurrentObservation, HasTheValuesOfTheReport)
{
    const QString reply = CurrentObservation(*FindStation(u"KBWI"), kEightInTheEvening);

    EXPECT_EQ(LineOf(reply, "<location>"),
              "<location>Baltimore-Washington International Airport, MD</location>");
    EXPECT_EQ(LineOf(reply, "<observation_time>"),
              "<observation_time>Last Updated on Mar 14 2026, 3:00 pm EST</observation_time>");
    EXPECT_EQ(LineOf(reply, "<observation_time_rfc822>"),
              "<observation_time_rfc822>Sat, 14 Mar 2026 15:00:00 -0500</observation_time_rfc822>");
    EXPECT_EQ(LineOf(reply, "<weather>"), "<weather>Mostly Cloudy</weather>");
    EXPECT_EQ(LineOf(reply, "<temp_f>"), "<temp_f>73.4</temp_f>");
    EXPECT_EQ(LineOf(reply, "<temp_c>"), "<temp_c>23.0</temp_c>");
    EXPECT_EQ(LineOf(reply, "<relative_humidity>"), "<relative_humidity>41</relative_humidity>");
    EXPECT_EQ(LineOf(reply, "<wind_string>"),
              "<wind_string>Northwest at 13.8 MPH (12 KT)</wind_string>");
    EXPECT_EQ(LineOf(reply, "<pressure_in>"), "<pressure_in>29.92</pressure_in>");
    EXPECT_EQ(LineOf(reply, "<dewpoint_f>"), "<dewpoint_f>48.2</dewpoint_f>");
    EXPECT_EQ(LineOf(reply, "<visibility_mi>"), "<visibility_mi>10.00</visibility_mi>");
    EXPECT_TRUE(reply.contains("</credit_URL>\r\n\t<image>\r\n\t\t<url>"));
    EXPECT_TRUE(reply.endsWith("</current_observation>\n"));
}

TEST(CurrentObservation, WritesCalmWindAndAnEasternZone)
{
    const QString reply = CurrentObservation(*FindStation(u"EDDH"), kEightInTheEvening);

    EXPECT_EQ(LineOf(reply, "<wind_string>"), "<wind_string>Calm</wind_string>");
    EXPECT_EQ(LineOf(reply, "<wind_degrees>"), "<wind_degrees>0</wind_degrees>");
    EXPECT_EQ(LineOf(reply, "<observation_time_rfc822>"),
              "<observation_time_rfc822>Sat, 14 Mar 2026 21:00:00 +0100</observation_time_rfc822>");
}

TEST(CurrentObservation, LeavesOutWhatTheStationDoesNotReport)
{
    const QString noSky = CurrentObservation(*FindStation(u"EKCH"), kEightInTheEvening);
    const QString noTemperature = CurrentObservation(*FindStation(u"BIKF"), kEightInTheEvening);

    EXPECT_EQ(LineOf(noSky, "<weather>"), "none");
    EXPECT_EQ(LineOf(noSky, "<visibility_mi>"), "none");
    EXPECT_EQ(LineOf(noTemperature, "<temp_f>"), "none");
    EXPECT_EQ(LineOf(noTemperature, "<relative_humidity>"), "none");
}

TEST(NotFoundPage, ShowsTheAddressAsText)
{
    EXPECT_TRUE(NotFoundPage("/<b>").contains("at /&lt;b&gt;."));
}

} // namespace
