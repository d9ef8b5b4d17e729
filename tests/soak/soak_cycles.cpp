// Ten thousand cycles of the real window with the real transfers against the demo host: each begins
// with a click on "Get Weather Now" and ends with the output file. Resident memory after the last
// one may be 2 % above that after the thousandth.

#include "net/curl_transfers.h"
#include "support/child_program.h"
#include "support/fake_panel_icon.h"
#include "support/fixed_clock.h"
#include "support/whole_program.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace std::chrono_literals;

namespace {

constexpr int kCycles = 10'000;
constexpr int kSettled = 1'000;
constexpr double kGrowth = 1.02;

int Fail(const QString &what)
{
    std::fprintf(stderr, "soak_cycles: %s\n", qUtf8Printable(what));
    return 1;
}

QByteArray Bytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Resident memory of this process in pages.
qint64 ResidentPages()
{
    return Bytes("/proc/self/statm").split(' ').value(1).toLongLong();
}

int OpenFiles()
{
    return int(QDir("/proc/self/fd")
                   .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                   .size());
}

/// One cycle, from the click to the file. @return false when its end does not come.
bool RunCycle(WholeProgram &program)
{
    QTest::mouseClick(program.window.findChild<QPushButton *>("btnGetWeather"), Qt::LeftButton);
    const QDeadlineTimer deadline(30s);
    while (program.station.WeatherThreadHandle() != 0 && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        program.window.tmrMain_Timer(); // as often as it can be, instead of four times a second
    }
    return program.station.WeatherThreadHandle() == 0;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    ChildProgram host(TAVRIN_DEMO_HOST, {"--port", "0", "--time", "2026-03-14T20:00"});
    const QByteArray address = host.FirstLine().section(' ', -1).toLatin1();

    const QTemporaryDir folder;
    QFile profiles(folder.filePath("TavrinWeatherProfiles.ini"));
    QFile settings(folder.filePath("TavrinWeatherSettings.ini"));
    if (!profiles.open(QIODevice::WriteOnly) || !settings.open(QIODevice::WriteOnly))
        return Fail("the folder cannot be written");
    profiles.write(
        Bytes(TAVRIN_TEST_DATA "/e2e/observation_profiles.ini").replace("%HOST%", address));
    profiles.close();
    settings.write("[Profile0]\r\nlocation1=KBWI\r\n"
                   "[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n");
    settings.close();

    FixedClock clock(QDateTime(QDate(2026, 11, 20), QTime(12, 30)));
    CurlTransfers http;
    FakePanelIcon panelIcon;
    WholeProgram program({.folder = folder.path()}, {clock, http, panelIcon});
    if (program.window.Form_Load({}))
        return Fail("the window does not start");

    const QByteArray expected = Bytes(TAVRIN_TEST_DATA "/e2e/observation_weather.ini");
    qint64 settled = 0;
    int openFiles = 0;
    for (int cycle = 1; cycle <= kCycles; ++cycle) {
        QFile::remove(folder.filePath("Weather.ini"));
        if (!RunCycle(program))
            return Fail("no end of cycle " + QString::number(cycle));
        if (Bytes(folder.filePath("Weather.ini")) != expected)
            return Fail("another output file in cycle " + QString::number(cycle));
        if (cycle == kSettled) {
            settled = ResidentPages();
            openFiles = OpenFiles();
        }
    }
    const double growth = double(ResidentPages()) / double(settled);
    std::printf(
        "soak_cycles: memory after %d cycles is %.4f of that after %d, open files %d and %d\n",
        kCycles, growth, kSettled, OpenFiles(), openFiles);
    return growth <= kGrowth && OpenFiles() <= openFiles ? 0 : 1;
}
