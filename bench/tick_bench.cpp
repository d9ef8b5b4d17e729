// How long one tick of the main timer blocks the event loop after a transfer has ended: parse,
// display, min/max store and output file; also if the host has sent what it should not. Figures are
// processor time of the one thread.

#include "gui/main_window.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMegabyte = 1024 * 1024;

/// What follows a value in the reply.
enum class Closing
{
    Found,  ///< Its closing tag.
    Missing ///< Nothing: the value is the whole rest of the reply.
};

double ThreadMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// A page of `size` characters, one long line or many, without a value.
QString Page(qsizetype size, bool oneLine = false)
{
    const QString line = u"<tr><td>a line of the page around it</td>\t<td>no value</td></tr>"_s
                       + (oneLine ? QString() : u"\r\n"_s);
    QString page;
    page.reserve(size + line.size());
    while (page.size() < size)
        page += line;
    return page;
}

/// The same with the values at its end.
QString WeatherReply(qsizetype size, bool oneLine)
{
    QString page = Page(size, oneLine);
    for (const QuantityRow &row : kQuantities)
        page += u'<' + row.stem.toString() + u">61.5<"_s;
    return page;
}

/// A zone's forecast of `size` characters, in paragraphs such as offices write.
QString Forecast(qsizetype size)
{
    const QString paragraph = u".MONDAY...Partly sunny with a slight chance of showers in the\n"
                              "afternoon. Highs in the upper 60s. South winds 5 to 10 mph.\n\n"_s;
    QString text = u"FPUS51 KLWX 040800\n\nMDZ011-041500-\nSouthern Baltimore-\n\n"_s;
    text.reserve(size + paragraph.size());
    while (text.size() < size)
        text += paragraph;
    return text + u"$$\n"_s;
}

WeatherProfile Profile(Closing closing)
{
    WeatherProfile profile;
    profile.title = u"Service"_s;
    profile.baseURL = u"http://service/"_s;
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        profile.tags[i].Open = u'<' + kQuantities[i].stem.toString() + u'>';
        profile.tags[i].Close = u"<"_s;
    }
    profile[Quantity::MinTemp].Units = u"%MIN%"_s;
    if (closing == Closing::Missing)
        profile[Quantity::Conditions] = {.Open = u"<tr>"_s, .Close = u"(never)"_s};
    return profile;
}

/// Times the ticks after `endTransfer`, which starts a transfer and ends it.
void MeasureTicks(benchmark::State &state, frmMain &window,
                  const std::function<void()> &endTransfer)
{
    double worst = 0;
    for ([[maybe_unused]] auto _ : state) {
        endTransfer();
        const double start = ThreadMilliseconds();
        window.tmrMain_Timer();
        const double milliseconds = ThreadMilliseconds() - start;
        worst = std::max(worst, milliseconds);
        state.SetIterationTime(milliseconds * 1e-3);
    }
    state.counters["worst_ms"] = worst;
}

/// Ends a transfer as received with `reply`, or as failed if there is none.
void End(FakeTransfers &http, TransferHandle transfer, const std::optional<QString> &reply)
{
    if (reply)
        http.Finish(transfer, *reply);
    else
        http.Fail(transfer);
}

/// Times the ticks after weather transfers that received `reply`, or failed if there is none.
void MeasureWeather(benchmark::State &state, MainWindow &m, const std::optional<QString> &reply)
{
    MeasureTicks(state, *m.window, [&] {
        m.window->StartWeatherRequest();
        End(m.http, m.station->WeatherThreadHandle(), reply);
    });
    if (!m.http.open.empty())
        state.SkipWithError("a tick left its transfer alone");
}

/// The same for forecasts.
void MeasureForecast(benchmark::State &state, const std::optional<QString> &reply)
{
    MainWindow m;
    if (m.Start())
        state.SkipWithError("not started");
    MeasureTicks(state, *m.window, [&] {
        m.window->StartForecastRequest();
        End(m.http, m.station->ForecastThreadHandle(), reply);
    });
    if (!m.http.open.empty())
        state.SkipWithError("a tick left its transfer alone");
}

void StartWith(MainWindow &m, benchmark::State &state, const WeatherProfile &profile)
{
    if (m.Start())
        state.SkipWithError("not started");
    m.station->profiles.weather[0] = profile;
    m.station->profiles.currentWeatherProfile = 0;
}

/// Arguments: megabytes of reply; 1: in one line; 1: the raw-data box is open; 1: one value without
/// its closing tag, so that it is the whole reply.
void Tick(benchmark::State &state)
{
    MainWindow m;
    StartWith(m, state, Profile(state.range(3) != 0 ? Closing::Missing : Closing::Found));
    if (state.range(2) != 0)
        m.window->btnShowRaw_Click();
    MeasureWeather(state, m, WeatherReply(state.range(0) * kMegabyte, state.range(1) != 0));
}

void WeatherFails(benchmark::State &state)
{
    MainWindow m;
    StartWith(m, state, Profile(Closing::Found));
    MeasureWeather(state, m, std::nullopt);
}

/// Argument: megabytes of a page that is not the service's reply, such as a network's log-in page.
void WeatherIsAPage(benchmark::State &state)
{
    MainWindow m;
    WeatherProfile profile = Profile(Closing::Found);
    profile.mainNodeOpen = u"<observation>"_s;
    profile.mainNodeClose = u"</observation>"_s;
    StartWith(m, state, profile);
    MeasureWeather(state, m, Page(state.range(0) * kMegabyte));
}

/// Argument: KiB of forecast.
void ForecastTick(benchmark::State &state)
{
    MeasureForecast(state, Forecast(state.range(0) * 1024));
}

void ForecastFails(benchmark::State &state)
{
    MeasureForecast(state, std::nullopt);
}

/// Argument: megabytes of a page that is not a forecast.
void ForecastIsAPage(benchmark::State &state)
{
    MeasureForecast(state, Page(state.range(0) * kMegabyte));
}

void Timed(benchmark::internal::Benchmark *benchmark)
{
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(11);
}

BENCHMARK(Tick)
    ->ArgNames({"megabytes", "one_line", "raw_open", "no_closing"})
    ->Args({1, 0, 0, 0})
    ->Args({4, 0, 0, 0})
    ->Args({4, 1, 0, 0})
    ->Args({4, 0, 1, 0})
    ->Args({4, 1, 1, 0})
    ->Args({4, 0, 0, 1})
    ->Args({16, 0, 0, 0})
    ->Args({16, 1, 1, 0})
    ->Args({16, 0, 0, 1})
    ->Apply(Timed);
BENCHMARK(WeatherFails)->Apply(Timed);
BENCHMARK(WeatherIsAPage)->ArgName("megabytes")->Arg(4)->Arg(16)->Apply(Timed);
BENCHMARK(ForecastTick)->ArgName("KiB")->Arg(8)->Arg(1024)->Arg(4096)->Arg(16384)->Apply(Timed);
BENCHMARK(ForecastFails)->Apply(Timed);
BENCHMARK(ForecastIsAPage)->ArgName("megabytes")->Arg(4)->Arg(16)->Apply(Timed);

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
