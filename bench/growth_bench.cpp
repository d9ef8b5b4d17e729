// How the cost of each kind of text grows: ten times the input compared with the input. Processor
// time of the thread, medians. Goal: at most eleven times.

#include "forecast/forecast_text.h"
#include "medians.h"
#include "net/body_text.h"
#include "store/ini_file.h"
#include "support/read_weather.h"
#include "zones/zone_header.h"
#include "zones/zone_listing.h"

#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kSmall = qsizetype(100) * 1024; // characters
constexpr int kGrowth = 10;
constexpr int kTurns = 20; // of the small input; a tenth as many of the large one

/// `pattern` repeated as often as it fits `size` characters.
QString Repeated(const QString &pattern, qsizetype size)
{
    return pattern.repeated(size / pattern.size());
}

double ThreadMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Work on an input that has been made before: no time is taken for the making.
using Work = std::function<void()>;

Work ParseAtTheEnd(qsizetype size)
{
    WeatherProfile profile;
    QString values;
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        profile.tags[i] = {.Open = u'<' + kQuantities[i].stem.toString() + u'>', .Close = u"<"_s};
        values += profile.tags[i].Open + u"61.5<\r\n"_s;
    }
    const QString page = Repeated(u"<tr><td>a line of the page</td></tr>\n"_s, size) + values;
    return [profile, page]() mutable { static_cast<void>(ReadInto(&profile, page, QDateTime())); };
}

Work CleanAForecast(qsizetype size)
{
    const QString product =
        u"MDZ011-222100-\n"_s
        + Repeated(u".TONIGHT...PARTLY CLOUDY IN THE EVENING...THEN BECOMING MOSTLY\n"
                   u"CLOUDY. COLD WITH LOWS AROUND 6 ABOVE. NORTHWEST WINDS 5 TO 10 MPH.\n"_s,
                   size);
    return [product] { static_cast<void>(CleanForecast(product, u"MDZ011"_s)); };
}

Work ReadAListing(qsizetype size)
{
    const QString rows =
        Repeated(u"<tr><td><a href=\"mdz011.txt\">mdz011.txt</a></td><td align=\"right\">"
                 u"16-Nov-2026 10:15  </td><td align=\"right\">1.2K</td></tr>\n"_s,
                 size);
    return [rows] { static_cast<void>(ZoneFileNames(rows, u"md"_s, QDate(2026, 11, 16))); };
}

Work ReadAZoneHeader(qsizetype size)
{
    const QString file = u"MDZ011-1-\n"_s + Repeated(u"Towson...Dundalk-\n"_s, size);
    return [file] { static_cast<void>(ZoneEntry(file, u"mdz011.txt"_s)); };
}

Work DecodeABody(qsizetype size)
{
    const QByteArray body = Repeated(u"Sm\u00F8rum, 12.5 \u00B0C\n"_s, size).toUtf8();
    return [body] { static_cast<void>(BodyText(body, "text/plain; charset=utf-8")); };
}

/// A group of writes to a file with that many sections, as after each reply.
Work WriteIntoAFile(qsizetype size)
{
    auto folder = std::make_shared<QTemporaryDir>();
    const IniPath path{.path = folder->filePath(u"Weather.ini"_s)};
    IniFile file(path);
    WriteIniValue(file, u"Long", u"KEY"_s, Repeated(u"eight of ten are ink "_s, size), true);
    file.Commit();
    return [folder, path] {
        IniFile again(path);
        WriteIniValue(again, u"Weather", u"TIME"_s, u"12:00"_s, true);
        again.Commit();
    };
}

double Cost(const Work &work, int turns)
{
    const double start = ThreadMilliseconds();
    for (int i = 0; i < turns; ++i)
        work();
    return (ThreadMilliseconds() - start) / turns;
}

void PrintRow(const char *name, const std::function<Work(qsizetype)> &make)
{
    const Work small = make(kSmall);
    const Work large = make(kSmall * kGrowth);
    std::vector<double> smallCosts;
    std::vector<double> largeCosts;
    for (int run = 0; run < kRuns; ++run) {
        smallCosts.push_back(Cost(small, kTurns));
        largeCosts.push_back(Cost(large, kTurns / kGrowth));
    }
    std::printf("%-34s %8.3f ms %8.3f ms %8.2f\n", name, Median(smallCosts), Median(largeCosts),
                Median(largeCosts) / Median(smallCosts));
}

} // namespace

int main()
{
    std::printf("%-34s %11s %11s %8s\n", "growth", "100 KB", "1 MB", "times");
    PrintRow("reply parsed, tags at its end", ParseAtTheEnd);
    PrintRow("forecast cleaned", CleanAForecast);
    PrintRow("directory listing read", ReadAListing);
    PrintRow("zone header read", ReadAZoneHeader);
    PrintRow("body decoded", DecodeABody);
    PrintRow("group of writes, long value beside", WriteIntoAFile);
    return 0;
}
