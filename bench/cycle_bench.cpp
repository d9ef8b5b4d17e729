// One whole cycle, from the requests for an airport report and a zone forecast to the two output
// files: the processor time that it adds to the running program, compared with weather-util's
// `weather` and with curl, which request the same two texts from the same host. The job is to fetch
// two texts, four times an hour; the peers do it by starting a program.

#include "core/clock.h"
#include "medians.h"
#include "net/curl_transfers.h"
#include "support/fake_panel_icon.h"
#include "support/whole_program.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCycles = 200;
constexpr int kFirstCycles = 5;  // which load what is loaded only once
constexpr int kTick = 25;        // milliseconds
constexpr int kLongest = 30'000; // milliseconds
const QString kReport = u"/data/observations/metar/decoded/KSEA.TXT"_s;
const QString kForecast = u"/data/forecasts/zone/md/mdz011.txt"_s;

bool Write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// The shipped profiles with the host on this machine in place of the service.
bool WriteFiles(const QDir &folder, const QString &host)
{
    QFile shipped(QStringLiteral(TAVRIN_SHIPPED_PROFILES));
    if (!shipped.open(QIODevice::ReadOnly))
        return false;
    QByteArray profiles = shipped.readAll();
    profiles.replace("https://tgftp.nws.noaa.gov%PORT%/", host.toUtf8() + '/');
    profiles.replace("[ForecastProfile0]", "[ForecastProfile0]\r\nhost=" + host.toUtf8());
    return Write(folder.filePath(u"TavrinWeatherProfiles.ini"_s), profiles)
        && Write(folder.filePath(u"TavrinWeatherSettings.ini"_s),
                 "[Profile1]\r\nlocation1=KSEA\r\n[Settings]\r\nCurrentProfile=1\r\n"
                 "ForecastZone=MDZ011\r\nForecastState=MD\r\n")
        && Write(folder.filePath(u"weatherrc"_s),
                 "[here]\nmetar = " + (host + kReport).toUtf8()
                     + "\nzone_forecast = " + (host + kForecast).toUtf8() + '\n');
}

/// Both requests, and the timer's ticks until both files are written: ten times as often as the
/// program's own, so that 200 cycles do not take minutes.
bool RunCycle(WholeProgram &program)
{
    program.window.StartWeatherRequest();
    program.window.StartForecastRequest();
    QEventLoop loop;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, &loop, [&] {
        program.window.tmrMain_Timer();
        if (program.station.WeatherThreadHandle() == 0
            && program.station.ForecastThreadHandle() == 0)
            loop.quit();
    });
    ticks.start(kTick);
    QTimer deadline; // one of its own: the analyzer takes a single shot's slot for a leak
    QObject::connect(&deadline, &QTimer::timeout, &loop, [&loop] { loop.exit(1); });
    deadline.start(kLongest);
    return loop.exec() == 0;
}

/// Prints how many milliseconds of processor time a cycle adds.
int RunProgram(const QDir &folder)
{
    CurlTransfers http;
    const SystemClock clock;
    FakePanelIcon panelIcon;
    WholeProgram program({.folder = folder.path()}, {clock, http, panelIcon});
    if (program.window.Form_Load({}))
        return 1;
    program.window.show();
    double before = 0;
    for (int cycle = -kFirstCycles; cycle < kCycles; ++cycle) {
        if (cycle == 0)
            before = ProcessorMilliseconds(RUSAGE_SELF);
        for (const auto *file : {"Weather.ini", "Forecast.ini"})
            QFile::remove(folder.filePath(QString::fromLatin1(file)));
        if (!RunCycle(program) || !folder.exists(u"Weather.ini"_s)
            || !folder.exists(u"Forecast.ini"_s))
            return 1;
    }
    std::printf("%f\n", (ProcessorMilliseconds(RUSAGE_SELF) - before) / kCycles);
    program.window.Form_Unload();
    return 0;
}

/// What a program prints, if it succeeds.
std::optional<QByteArray> Output(const QString &program, const QStringList &arguments,
                                 const QDir &folder)
{
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start(program, arguments);
    if (!process.waitForFinished(kLongest * 4) || process.exitCode() != 0)
        return std::nullopt;
    return process.readAllStandardOutput();
}

/// Milliseconds of one run of a peer; nothing if it fails or its output lacks `expected`.
std::optional<double> Peer(const QString &program, const QStringList &arguments, const QDir &folder,
                           const char *expected)
{
    const double before = ProcessorMilliseconds(RUSAGE_CHILDREN);
    const auto output = Output(program, arguments, folder);
    if (!output || !output->contains(expected))
        return std::nullopt;
    return ProcessorMilliseconds(RUSAGE_CHILDREN) - before;
}

void PrintRow(const char *name, const std::vector<double> &figures, double own)
{
    if (figures.empty())
        std::printf("%-34s not there\n", name);
    else
        std::printf("%-34s %8.2f ms %8.3f\n", name, Median(figures), own / Median(figures));
}

int RunAll(const QDir &folder, const QString &host)
{
    std::vector<double> own;
    std::vector<double> weather;
    std::vector<double> curl;
    for (int run = 0; run < kRuns; ++run) {
        const auto cycle =
            Output(QCoreApplication::applicationFilePath(), {u"--part"_s, folder.path()}, folder);
        if (!cycle)
            return 1;
        own.push_back(cycle->toDouble());
        if (const auto one = Peer(u"weather"_s, {u"--no-cache"_s, u"--forecast"_s, u"here"_s},
                                  folder, "Temperature"))
            weather.push_back(*one);
        if (const auto one = Peer(u"curl"_s, {u"--silent"_s, host + kReport, host + kForecast},
                                  folder, "Temperature"))
            curl.push_back(*one);
    }
    std::printf("%-34s %11s %8s\n", "one cycle, two texts", "processor", "ratio");
    std::printf("%-34s %8.2f ms\n", "added to the running program", Median(own));
    PrintRow("weather (weather-util)", weather, Median(own));
    PrintRow("curl, both in one call", curl, Median(own));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--part"_L1)
        return RunProgram(QDir(arguments.value(2)));

    QProcess demoHost;
    demoHost.start(QStringLiteral(TAVRIN_DEMO_HOST), {u"--port"_s, u"0"_s});
    const QTemporaryDir folder;
    if (!demoHost.waitForReadyRead(kLongest) || !folder.isValid())
        return 1;
    const QString host =
        QString::fromUtf8(demoHost.readLine()).simplified().section(u' ', -1); // "Listening on ..."
    const int result =
        WriteFiles(QDir(folder.path()), host) ? RunAll(QDir(folder.path()), host) : 1;
    if (result != 0)
        std::fprintf(stderr, "A part did not run to its end.\n");
    demoHost.terminate();
    demoHost.waitForFinished();
    return result;
}
