#include "store/ini_file.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kKeys = 17; // as many as in the weather output file

/// One group of writes as after each reply: the file is read, 17 values are changed, the file is
/// stored. One of the values is as long as a reply whose closing tag is missing.
void StoreOneGroup(benchmark::State &state)
{
    const QTemporaryDir folder;
    const IniPath path{.path = folder.filePath(u"Weather.ini"_s)};
    const qsizetype length = state.range(0);
    const QString words = u"eight of ten are ink "_s;
    const QString longValue = words.repeated(length / words.size() + 1).first(length);

    int cycle = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++cycle;
        IniFile file(path);
        WriteIniValue(file, u"Weather", u"LONG", longValue + QString::number(cycle), true);
        for (int i = 1; i < kKeys; ++i) {
            const QString key = u"KEY"_s + QString::number(i);
            WriteIniValue(file, u"Weather", key, QString::number(cycle + i), true);
        }
        if (file.Commit().IsError())
            state.SkipWithError("the file cannot be written");
    }
}

BENCHMARK(StoreOneGroup)
    ->Unit(benchmark::kMillisecond)
    ->Arg(100)
    ->Arg(100'000)
    ->Arg(4'000'000)
    ->Arg(16'000'000);

} // namespace
