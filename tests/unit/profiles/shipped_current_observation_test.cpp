#include "support/qt_printers.h"
#include "unit/profiles/shipped_profiles.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kProfile = 0;

/// Every element that the profile reads, one per line; mixed line ends, tabs and blanks as the
/// service sends them.
QString FullReply()
{
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?> \r\n"
           "<current_observation version=\"1.0\"\r\n"
           "\t xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\r\n"
           "\t<credit>NOAA's National Weather Service</credit>\r\n"
           "\t<credit_URL>http://weather.gov/</credit_URL>\r\n"
           "\t<image>\r\n"
           "\t\t<url>http://weather.gov/images/xml_logo.gif</url>\r\n"
           "\t\t<title>NOAA's National Weather Service</title>\r\n"
           "\t\t<link>http://weather.gov</link>\r\n"
           "\t</image>\r\n"
           "\t<suggested_pickup>15 minutes after the hour</suggested_pickup>\r\n"
           "\t<suggested_pickup_period>60</suggested_pickup_period>\n"
           "\t<location>Harbour Field, ST</location>\n"
           "\t<station_id>KXYZ</station_id>\n"
           "\t<latitude>33.2</latitude>\n"
           "\t<observation_time>Last Updated on Apr 29 2026, 3:53 pm CDT</observation_time>\r\n"
           "        <observation_time_rfc822>Wed, 29 Apr 2026 15:53:00 "
           "-0500</observation_time_rfc822>\n"
           "\t<weather>Mostly Cloudy</weather>\n"
           "\t<temperature_string>77.0 F (25.0 C)</temperature_string>\r\n"
           "\t<temp_f>77.0</temp_f>\r\n"
           "\t<temp_c>25.0</temp_c>\n"
           "\t<relative_humidity>82</relative_humidity>\n"
           "\t<wind_string>from the Northwest at 20.7 gusting to 31.1 MPH (18 gusting to 27 "
           "KT)</wind_string>\n"
           "\t<wind_dir>Northwest</wind_dir>\n"
           "\t<wind_degrees>320</wind_degrees>\n"
           "\t<wind_mph>20.7</wind_mph>\n"
           "\t<pressure_string>1000.4 mb</pressure_string>\n"
           "\t<pressure_mb>1000.4</pressure_mb>\n"
           "\t<pressure_in>29.57</pressure_in>\n"
           "\t<dewpoint_string>71.1 F (21.7 C)</dewpoint_string>\r\n"
           "\t<dewpoint_f>71.1</dewpoint_f>\r\n"
           "\t<dewpoint_c>21.7</dewpoint_c>\n"
           "\t<heat_index_string>79 F (26 C)</heat_index_string>\r\n"
           "\t<heat_index_f>79</heat_index_f>\r\n"
           "\t<windchill_string>75 F (24 C)</windchill_string>\r\n"
           "\t<windchill_f>75</windchill_f>\r\n"
           "\t<visibility_mi>8.00</visibility_mi>\n"
           " \t<icon_url_base>http://forecast.weather.gov/images/</icon_url_base>\n"
           "\t<privacy_policy_url>http://weather.gov/notice.html</privacy_policy_url>\r\n"
           "</current_observation>\n";
}

WeatherValues FullValues()
{
    WeatherValues values = NothingKnown(" F");
    values[Quantity::Temperature] = "77.0 F";
    values[Quantity::Conditions] = "Mostly Cloudy";
    values[Quantity::WindSpeed] =
        "from the Northwest at 20.7 gusting to 31.1 MPH (18 gusting to 27 KT)";
    values[Quantity::Humidity] = "82%";
    values[Quantity::AtmosPress] = "29.57 in";
    values[Quantity::DewPoint] = "71.1 F";
    values[Quantity::WindChill] = "75 F";
    values[Quantity::HeatIndex] = "79 F";
    values[Quantity::Visibility] = "8.00 miles";
    values[Quantity::Sunrise] = kNotDelivered.toString();
    values[Quantity::Sunset] = kNotDelivered.toString();
    values[Quantity::Precip] = kNotDelivered.toString();
    values[Quantity::Time] = "Apr 29 2026, 3:53 pm CDT";
    values[Quantity::Location] = "Harbour Field, ST";
    return values;
}

/// An element that may be missing, and its value then.
struct OptionalElement
{
    const char *name;
    Quantity value;
    QStringView missing = kNone;
};

const std::vector<OptionalElement> kOptional{
    {"observation_time", Quantity::Time, kClockTime},
    {"location", Quantity::Location, kEnteredPlace},
    {"weather", Quantity::Conditions},
    {"relative_humidity", Quantity::Humidity},
    {"wind_string", Quantity::WindSpeed},
    {"pressure_in", Quantity::AtmosPress},
    {"dewpoint_f", Quantity::DewPoint},
    {"heat_index_f", Quantity::HeatIndex},
    {"windchill_f", Quantity::WindChill},
    {"visibility_mi", Quantity::Visibility},
};

QString Opening(const OptionalElement &element)
{
    return QString("<") + element.name + '>';
}

TEST(ShippedCurrentObservation, GivesAllValues)
{
    const Outcome outcome = Parse(kProfile, FullReply());

    EXPECT_TRUE(outcome.parsed);
    EXPECT_EQ(outcome.values, Lines(FullValues()));
    EXPECT_EQ(outcome.temps, QList<double>{77});
}

TEST(ShippedCurrentObservation, ShowsWhatIsMissingInAnyCombinationAsNotAvailable)
{
    for (unsigned missing = 0; missing < 1U << kOptional.size(); ++missing) {
        QString reply = FullReply();
        WeatherValues expected = FullValues();
        for (std::size_t i = 0; i < kOptional.size(); ++i) {
            if ((missing >> i & 1U) != 0) {
                reply = WithoutLine(reply, Opening(kOptional[i]));
                expected[kOptional[i].value] = kOptional[i].missing.toString();
            }
        }

        const Outcome outcome = Parse(kProfile, reply);

        ASSERT_TRUE(outcome.parsed) << missing;
        ASSERT_EQ(outcome.values, Lines(expected)) << missing;
        ASSERT_EQ(outcome.pieces, QStringList()) << missing;
    }
}

TEST(ShippedCurrentObservation, ShowsAnEmptyElementAsNotAvailable)
{
    const QString reply = FullReply().replace("<weather>Mostly Cloudy<", "<weather> <");
    WeatherValues expected = FullValues();
    expected[Quantity::Conditions] = "N/A";

    EXPECT_EQ(Parse(kProfile, reply).values, Lines(expected));
}

TEST(ShippedCurrentObservation, ShowsCalmAndVariableWindAsTheServiceWordsIt)
{
    const QString wind = "from the Northwest at 20.7 gusting to 31.1 MPH (18 gusting to 27 KT)";
    for (const QString words : {"Calm", "Variable at 6.9 MPH (6 KT)"}) {
        WeatherValues expected = FullValues();
        expected[Quantity::WindSpeed] = words;

        EXPECT_EQ(Parse(kProfile, FullReply().replace(wind, words)).values, Lines(expected));
    }
}

TEST(ShippedCurrentObservation, ReadsNegativeTemperaturesAndZero)
{
    const QString reply = FullReply()
                              .replace("<temp_f>77.0<", "<temp_f>-9.0<")
                              .replace("<dewpoint_f>71.1<", "<dewpoint_f>-18.0<")
                              .replace("<windchill_f>75<", "<windchill_f>-23<")
                              .replace("<heat_index_f>79<", "<heat_index_f>0<");
    WeatherValues expected = FullValues();
    expected[Quantity::Temperature] = "-9.0 F";
    expected[Quantity::DewPoint] = "-18.0 F";
    expected[Quantity::WindChill] = "-23 F";
    expected[Quantity::HeatIndex] = "0 F";

    const Outcome outcome = Parse(kProfile, reply);

    EXPECT_EQ(outcome.values, Lines(expected));
    EXPECT_EQ(outcome.temps, QList<double>{-9});
}

TEST(ShippedCurrentObservation, RefusesAReplyWithoutATemperature)
{
    const QString missing = WithoutLine(FullReply(), "<temp_f>");
    const QString none = FullReply().replace("<temp_f>77.0<", "<temp_f>NA<");
    for (const QString &reply : {missing, none}) {
        const Outcome outcome = Parse(kProfile, reply);

        EXPECT_FALSE(outcome.parsed);
        EXPECT_EQ(outcome.values, Lines({}));
        EXPECT_EQ(outcome.temps, QList<double>());
        EXPECT_EQ(outcome.statuses,
                  QStringList{"Required value not found in received data: temperature"});
    }
}

TEST(ShippedCurrentObservation, RefusesATornReply)
{
    const QString reply = FullReply();

    const Outcome outcome = Parse(kProfile, reply.left(reply.indexOf("</visibility_mi>")));

    EXPECT_FALSE(outcome.parsed);
    EXPECT_EQ(outcome.values, Lines({}));
}

} // namespace
