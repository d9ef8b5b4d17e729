// How long it takes to turn a reply into the sixteen values, compared with what any search of the
// same text costs: seventeen plain searches for the opening tags and sixteen copies of the text.

#include "support/read_weather.h"
#include "weather/main_node.h"
#include "weather/node_value.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>

using namespace Qt::StringLiterals;

namespace {

constexpr int kKilobyte = 1024;
constexpr int kMegabyte = 1024 * kKilobyte;

WeatherProfile Profile()
{
    WeatherProfile profile;
    profile.concatinateWindSpeedDir = true;
    profile.required = QStringList{u"temperature"_s};
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        profile.tags[i].Open = u'<' + kQuantities[i].stem.toString() + u'>';
        profile.tags[i].Close = u"<"_s;
    }
    profile[Quantity::MinTemp].Units = u"%MIN%"_s;
    return profile;
}

/// A page of about `size` characters with the seventeen values at its front or at its end.
QString ReplyText(qsizetype size, bool atEnd)
{
    QString values;
    for (const QuantityRow &row : kQuantities)
        values += u'<' + row.stem.toString() + u">61.5<\r\n"_s;
    const QString line = u"<tr><td>a line of the page around it</td>\t<td>no value</td></tr>\n"_s;
    QString page;
    while (page.size() + values.size() < size)
        page += line;
    return atEnd ? page + values : values + page;
}

/// Rounds between two readings of the clock, so that small texts outweigh the reading itself.
int Rounds(qsizetype size)
{
    return static_cast<int>(1 + qsizetype{400} * kKilobyte / size);
}

double ThreadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The least that a parser built on text search does with the reply.
void SearchPlainly(const QString &text, const WeatherProfile &profile)
{
    for (const QuantityTags &tags : profile.tags)
        benchmark::DoNotOptimize(QStringView(text).indexOf(tags.Open));
    for (int i = 0; i < 16; ++i) {
        const QString copy(text.constData(), text.size());
        benchmark::DoNotOptimize(copy.constData());
    }
}

/// The two figures of a row: the time over that of the plain search, and the cost of a character.
void Count(benchmark::State &state, double own, double plain, double characters)
{
    state.counters["ratio"] = own / plain;
    state.counters["ns_per_char"] =
        own * 1e9 / (characters * static_cast<double>(state.iterations()));
}

/// Arguments: size in characters, values at the end (1) or the front (0). The counter `ratio` is
/// the parse's time over the plain searches' time, measured alternately.
void ParseWeatherDataBeside(benchmark::State &state)
{
    const QString reply = ReplyText(state.range(0), state.range(1) != 0);
    const QDateTime now(QDate(2026, 11, 20), QTime(12, 0));
    WeatherProfile profile = Profile();
    const int rounds = Rounds(reply.size());
    double parsing = 0;
    double searching = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double start = ThreadSeconds();
        for (int i = 0; i < rounds; ++i) {
            if (!ReadInto(&profile, reply, now).taken)
                state.SkipWithError("not parsed");
        }
        const double middle = ThreadSeconds();
        for (int i = 0; i < rounds; ++i)
            SearchPlainly(reply, profile);
        searching += ThreadSeconds() - middle;
        parsing += middle - start;
        state.SetIterationTime(middle - start);
    }
    Count(state, parsing, searching, static_cast<double>(reply.size()) * rounds);
}

/// One value from a text of the given size, with its tag at the front or at the end, compared with
/// one plain search and one copy.
void GetNodeValueBeside(benchmark::State &state)
{
    QString data = WorkingText(ReplyText(state.range(0), state.range(1) != 0));
    WeatherProfile profile = Profile();
    QuantityTags &tags = profile[Quantity::Location];
    const int rounds = Rounds(data.size());
    double reading = 0;
    double searching = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double start = ThreadSeconds();
        for (int i = 0; i < rounds; ++i) {
            benchmark::DoNotOptimize(
                GetNodeValue(data, {.openTag = tags.Open, .closeTag = tags.Close}));
        }
        const double middle = ThreadSeconds();
        for (int i = 0; i < rounds; ++i) {
            benchmark::DoNotOptimize(QStringView(data).indexOf(tags.Open));
            const QString copy(data.constData(), data.size());
            benchmark::DoNotOptimize(copy.constData());
        }
        searching += ThreadSeconds() - middle;
        reading += middle - start;
        state.SetIterationTime(middle - start);
    }
    Count(state, reading, searching, static_cast<double>(data.size()) * rounds);
}

/// Replies from half a kilobyte to four megabytes.
void Sizes(benchmark::internal::Benchmark *bench)
{
    for (const int atEnd : {0, 1}) {
        for (const int size : {512, 2 * kKilobyte, 100 * kKilobyte, kMegabyte, 4 * kMegabyte})
            bench->Args({size, atEnd});
    }
    bench->ArgNames({"size", "at_end"})->UseManualTime();
}

BENCHMARK(ParseWeatherDataBeside)->Apply(Sizes);
BENCHMARK(GetNodeValueBeside)->Apply(Sizes);

} // namespace
