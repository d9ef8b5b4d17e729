// One XML observation parsed into the sixteen values of the shipped profile, compared with pugixml,
// which parses the same document and looks up the same elements: the observation alone, and in
// pages of 100 KB and 1 MB. Processor time of the thread, medians.

#include "medians.h"
#include "profiles/profile_file.h"
#include "support/read_weather.h"

#include <cstdio>
#include <ctime>
#include <string>

#include <pugixml.hpp>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kKilobyte = 1024;
constexpr qsizetype kWork = 4 * kKilobyte * kKilobyte; // characters in one measurement

const QString kObservation = uR"(<current_observation version="1.0">
	<credit>Service</credit>
	<credit_URL>http://127.0.0.1/</credit_URL>
	<image>
		<url>http://127.0.0.1/logo.gif</url>
		<title>Service</title>
		<link>http://127.0.0.1</link>
	</image>
	<suggested_pickup>15 minutes after the hour</suggested_pickup>
	<suggested_pickup_period>60</suggested_pickup_period>
	<location>Baltimore-Washington International Airport, MD</location>
	<station_id>KBWI</station_id>
	<latitude>39.17</latitude>
	<longitude>-76.68</longitude>
	<observation_time>Last Updated on Nov 20 2026, 3:38 am EST</observation_time>
	<observation_time_rfc822>Fri, 20 Nov 2026 03:38:54 -0500</observation_time_rfc822>
	<weather>Mostly Cloudy</weather>
	<temperature_string>34.0 F (1.1 C)</temperature_string>
	<temp_f>34.0</temp_f>
	<temp_c>1.1</temp_c>
	<relative_humidity>87</relative_humidity>
	<wind_string>West at 6.9 MPH (6 KT)</wind_string>
	<wind_dir>West</wind_dir>
	<wind_degrees>260</wind_degrees>
	<wind_mph>6.9</wind_mph>
	<wind_kt>6</wind_kt>
	<pressure_string>1012.9 mb</pressure_string>
	<pressure_mb>1012.9</pressure_mb>
	<pressure_in>29.91</pressure_in>
	<dewpoint_string>30.2 F (-1.0 C)</dewpoint_string>
	<dewpoint_f>30.2</dewpoint_f>
	<dewpoint_c>-1.0</dewpoint_c>
	<windchill_string>28.0 F (-2.2 C)</windchill_string>
	<windchill_f>28.0</windchill_f>
	<windchill_c>-2.2</windchill_c>
	<visibility_mi>10.00</visibility_mi>
	<icon_url_base>http://127.0.0.1/icons/</icon_url_base>
	<two_day_history_url>http://127.0.0.1/history/KBWI.html</two_day_history_url>
	<ob_url>http://127.0.0.1/metar/KBWI.1.txt</ob_url>
	<copyright_url>http://127.0.0.1/</copyright_url>
</current_observation>
)"_s;

/// The observation in the middle of a page of about `size` characters.
QString Page(qsizetype size)
{
    const QString row = u"<row><name>a line of the page</name><text>around it</text></row>\n"_s;
    const qsizetype rows = std::max<qsizetype>(0, size - kObservation.size()) / row.size() / 2;
    return u"<page>\n"_s + row.repeated(rows) + kObservation + row.repeated(rows) + u"</page>\n"_s;
}

/// The elements that the profile asks for; its other values are computed, or the service has none.
constexpr const char *kElements[] = {"observation_time", "location",     "temp_f",
                                     "weather",          "wind_string",  "relative_humidity",
                                     "pressure_in",      "dewpoint_f",   "windchill_f",
                                     "heat_index_f",     "visibility_mi"};

bool LookUp(const std::string &page, std::vector<std::string> &values)
{
    pugi::xml_document document;
    if (!document.load_buffer(page.data(), page.size(), pugi::parse_default, pugi::encoding_utf8))
        return false;
    const pugi::xml_node observation = document.child("page").child("current_observation");
    values.clear();
    for (const char *element : kElements)
        values.emplace_back(observation.child_value(element));
    return values[2] == "34.0";
}

double ThreadMicroseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

/// Microseconds of one of `rounds` turns; below 0 if one failed.
template <typename Turn>
double Measure(int rounds, const Turn &turn)
{
    const double start = ThreadMicroseconds();
    for (int i = 0; i < rounds; ++i) {
        if (!turn())
            return -1;
    }
    return (ThreadMicroseconds() - start) / rounds;
}

bool PrintRow(const char *name, qsizetype size, WeatherProfile &profile)
{
    const QString page = Page(size);
    const std::string bytes = page.toStdString();
    const QDateTime now(QDate(2026, 11, 20), QTime(12, 0));
    const int rounds = static_cast<int>(1 + kWork / page.size());
    std::vector<std::string> values;
    std::vector<double> own;
    std::vector<double> other;
    for (int run = 0; run < kRuns; ++run) {
        own.push_back(Measure(rounds, [&] {
            return ReadInto(&profile, page, now).taken
                && profile.values[Quantity::Temperature] == "34.0 F"_L1;
        }));
        other.push_back(Measure(rounds, [&] { return LookUp(bytes, values); }));
        if (own.back() < 0 || other.back() < 0)
            return false;
    }
    std::printf("%-34s %8.1f us %8.1f us %8.3f\n", name, Median(own), Median(other),
                Median(own) / Median(other));
    return true;
}

} // namespace

int main()
{
    ProfileTable profiles;
    LoadWeatherProfiles(profiles, {QStringLiteral(TAVRIN_SHIPPED_PROFILES), CodePage::Utf8});
    WeatherProfile &profile = profiles.weather[0];
    std::printf("%-34s %11s %11s %8s\n", "one XML observation", "parsed", "pugixml", "ratio");
    const bool parsed = PrintRow("2 KB, the observation alone", 0, profile)
                     && PrintRow("in a page of 100 KB", 100 * kKilobyte, profile)
                     && PrintRow("in a page of 1 MB", 1024 * kKilobyte, profile);
    if (!parsed)
        std::fprintf(stderr, "The observation was not read.\n");
    return parsed ? 0 : 1;
}
