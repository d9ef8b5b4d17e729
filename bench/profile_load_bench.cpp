#include "profiles/profile_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int kProfiles = 10;

/// A profile with every key set, with texts as long as a real service's.
QByteArray FullProfile(int index)
{
    const QByteArray number = QByteArray::number(index);
    QByteArray lines = "; ---- " + number + "\r\n[Profile" + number + "]\r\n";
    for (const char *key : {"title", "copyright", "copyrightURL", "baseURL", "description",
                            "location1Title", "location2Title", "location3Title", "location4Title",
                            "mainNodeOpen", "mainNodeClose", "windSpeedDirFormat"})
        lines += key + "=A[SP]text[SP]of[SP]the[SP]service, number "_ba + number + "\r\n";
    for (const QuantityRow &row : kQuantities) {
        for (const char *group : {"Open", "Close", "Prefix", "Suffix", "Units", "Factor"})
            lines += row.stem.toLatin1() + group + "=<" + row.stem.toLatin1() + "[SP]value=\r\n";
    }
    return lines + "concatinateWindSpeedDir=TRUE\r\nrequired=temperature\r\n";
}

/// What the program does at start-up: it reads one file and looks up 1,170 values.
void LoadTenFullProfiles(benchmark::State &state)
{
    QByteArray bytes;
    for (int i = 0; i < kProfiles; ++i)
        bytes += FullProfile(i);
    const QTemporaryDir folder;
    const IniPath path{.path = folder.filePath(u"profiles.ini"_s)};
    QFile file(path.path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        state.SkipWithError("the profile file cannot be written");
        return;
    }
    file.close();

    ProfileTable profiles;
    for ([[maybe_unused]] auto _ : state) {
        LoadWeatherProfiles(profiles, path);
        benchmark::DoNotOptimize(profiles);
    }
    if (profiles.weather.back().required.isEmpty())
        state.SkipWithError("the last profile was not loaded");
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

BENCHMARK(LoadTenFullProfiles)->Unit(benchmark::kMillisecond);

} // namespace
