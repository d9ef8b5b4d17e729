// How long one tick of the main timer holds up the message loop when a reply has arrived: parse,
// display, min/max store and output file. Figures are processor time of the one thread.

#include "app/frm_main.h"
#include "support/fake_panel_icon.h"
#include "support/fake_transfers.h"
#include "support/fixed_clock.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMegabyte = 1024 * 1024;

/// What stands behind a value in the reply.
enum class Closing
{
    Found,  ///< Its closing tag.
    Missing ///< None: the value is all the rest of the reply.
};

double ThreadMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// A page of `size` characters, one long line or many, with the values at its end.
QString Reply(qsizetype size, bool oneLine)
{
    const QString line = u"<tr><td>a line of the page around it</td>\t<td>no value</td></tr>"_s
                       + (oneLine ? QString() : u"\r\n"_s);
    QString page;
    page.reserve(size);
    while (page.size() < size)
        page += line;
    for (const QStringView stem : kQuantityStems)
        page += u'<' + stem.toString() + u">61.5<"_s;
    return page;
}

WeatherProfile Profile(Closing closing)
{
    WeatherProfile profile;
    profile.title = u"Service"_s;
    profile.baseURL = u"http://service/"_s;
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        profile.tags[i].Open = u'<' + kQuantityStems[i].toString() + u'>';
        profile.tags[i].Close = u"<"_s;
    }
    profile[Quantity::MinTemp].Units = u"%MIN%"_s;
    if (closing == Closing::Missing)
        profile[Quantity::Conditions] = {.Open = u"<tr>"_s, .Close = u"(never)"_s};
    return profile;
}

/// Arguments: megabytes of reply; 1: in one line; 1: the raw-data box is open; 1: one value without
/// its closing tag, so that it is the whole reply.
void Tick(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString reply = Reply(state.range(0) * kMegabyte, state.range(1) != 0);
    FixedClock clock(QDateTime(QDate(2026, 11, 20), QTime(12, 0)));
    FakeTransfers http;
    ProgramState program;
    program.files.folder = folder.path();
    FakePanelIcon panelIcon;
    const Platform platform{clock, http, panelIcon};
    frmMain window(program, platform, [](auto &&...) { return true; });
    if (window.Form_Load({}))
        state.SkipWithError("not started");
    program.profiles.weather[0] = Profile(state.range(3) != 0 ? Closing::Missing : Closing::Found);
    program.profiles.currentWeatherProfile = 0;
    if (state.range(2) != 0)
        window.btnShowRaw_Click();

    double worst = 0;
    for (auto _ : state) {
        window.StartWeatherRequest();
        http.Finish(program.WeatherThreadHandle, reply);
        const double start = ThreadMilliseconds();
        window.tmrMain_Timer();
        const double milliseconds = ThreadMilliseconds() - start;
        worst = std::max(worst, milliseconds);
        state.SetIterationTime(milliseconds * 1e-3);
    }
    state.counters["worst_ms"] = worst;
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
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(11);

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
