#include "forecast/forecast_text.h"
#include "zones/zone_header.h"
#include "zones/zone_listing.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

// The forecast host's texts, at sizes up to the limit of a transfer.

namespace {

constexpr qsizetype kMega = qsizetype{1024} * 1024;

/// `pattern` repeated as often as it fits `size` characters.
QString Repeated(const QString &pattern, qsizetype size)
{
    return pattern.repeated(size / pattern.size());
}

qsizetype Size(const benchmark::State &state)
{
    return static_cast<qsizetype>(state.range(0)) * kMega;
}

/// Paragraphs such as offices write.
void CleanParagraphs(benchmark::State &state)
{
    const QString product =
        u"MDZ011-222100-\n"_s
        + Repeated(u".TONIGHT...PARTLY CLOUDY IN THE EVENING...THEN BECOMING MOSTLY\n"
                   u"CLOUDY. COLD WITH LOWS AROUND 6 ABOVE. NORTHWEST WINDS 5 TO 10 MPH.\n"_s,
                   Size(state));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(CleanForecast(product, u"MDZ011"_s));
}

/// Only what is replaced.
void CleanLineEndsAndPeriods(benchmark::State &state)
{
    const QString product = u"MDZ011-222100-\n"_s + Repeated(u"\n.\n...."_s, Size(state));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(CleanForecast(product, u"MDZ011"_s));
}

/// Rows, of which every second one is stale.
void ReadListing(benchmark::State &state)
{
    const QString row = u"<tr><td><a href=\"mdz011.txt\">mdz011.txt</a></td><td align=\"right\">"
                        u"%1-Nov-2026 10:15  </td><td align=\"right\">1.2K</td></tr>\n"_s;
    const QString listing = Repeated(row.arg(16) + row.arg(13), Size(state));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(ZoneFileNames(listing, u"md"_s, QDate(2026, 11, 16)));
    state.counters["rows"] = static_cast<double>(listing.count(u"<tr>"_s));
}

void ReadHeaderOfManyNames(benchmark::State &state)
{
    const QString file = u"MDZ011-1-\n"_s + Repeated(u"Towson...Dundalk-\n"_s, Size(state));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(ZoneEntry(file, u"mdz011.txt"_s));
}

void SearchHeaderInManyLines(benchmark::State &state)
{
    const QString file = Repeated(u"MDZ012-1-\nTowson-\n"_s, Size(state));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(ZoneEntry(file, u"mdz011.txt"_s));
}

void UpToTheLimit(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);
}

BENCHMARK(CleanParagraphs)->Apply(UpToTheLimit);
BENCHMARK(CleanLineEndsAndPeriods)->Apply(UpToTheLimit);
BENCHMARK(ReadListing)->Apply(UpToTheLimit);
BENCHMARK(ReadHeaderOfManyNames)->Apply(UpToTheLimit);
BENCHMARK(SearchHeaderInManyLines)->Apply(UpToTheLimit);

} // namespace
