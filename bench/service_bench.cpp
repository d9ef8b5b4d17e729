// The program without a window compared with a bare program that links the same libraries and has
// made one transfer too: processor time from the process's start to its first request, and resident
// memory two seconds after the reply.
//
// The measuring process serves the replies and looks at the two from outside.

#include "medians.h"
#include "support/loopback_server.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kLongest = std::chrono::seconds(30);
constexpr auto kIdle = std::chrono::seconds(2);

QByteArray ReadAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Resident memory of a process in KiB; 0 if the system does not tell.
double ResidentKiB(qint64 process)
{
    for (const QByteArray &line : ReadAll(u"/proc/%1/status"_s.arg(process)).split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').front().toDouble();
    }
    return 0;
}

/// Processor time of all threads of a process so far, in milliseconds.
double SpentMilliseconds(qint64 process)
{
    constexpr double kPerNanosecond = 1e-6;
    const QDir tasks(u"/proc/%1/task"_s.arg(process));
    double spent = 0;
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        spent += ReadAll(tasks.filePath(task + "/schedstat"_L1)).split(' ').front().toDouble();
    return spent * kPerNanosecond;
}

bool WaitFor(const std::function<bool()> &condition)
{
    const auto end = std::chrono::steady_clock::now() + kLongest;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// A weather service that holds its reply back until the caller of the request has been looked at.
class Service
{
public:
    [[nodiscard]] QString Url() const { return QString::fromStdString(m_server.Url()); }

    [[nodiscard]] bool WaitForRequest() const
    {
        return WaitFor([this] { return m_asked.load(); });
    }
    void LetGo() { m_mayReply = true; }
    [[nodiscard]] bool WaitForReply() const
    {
        return WaitFor([this] { return m_replied.load(); });
    }

private:
    std::atomic_bool m_asked = false;
    std::atomic_bool m_mayReply = false;
    std::atomic_bool m_replied = false;
    LoopbackServer m_server{[this](LoopbackConnection &connection, const std::string &) {
        m_asked = true;
        if (WaitFor([this] { return m_mayReply.load(); }))
            m_replied = connection.Reply("<o><t>61.5<x></o>");
    }};
};

/// What was measured in the runs of one program.
struct Figures
{
    std::vector<double> start; ///< Milliseconds.
    std::vector<double> idle;  ///< KiB.
};

/// Runs a program one more time; it is given the service's URL in `prepare`.
bool Add(Figures &figures,
         const std::function<void(QProcess &process, const QString &url)> &prepare)
{
    Service service;
    QProcess process;
    prepare(process, service.Url());
    process.start();
    bool measured = process.waitForStarted() && service.WaitForRequest();
    figures.start.push_back(SpentMilliseconds(process.processId()));
    service.LetGo();
    measured = measured && service.WaitForReply();
    std::this_thread::sleep_for(kIdle);
    figures.idle.push_back(ResidentKiB(process.processId()));
    process.terminate();
    process.waitForFinished();
    return measured && figures.start.back() > 0 && figures.idle.back() > 0;
}

/// The folder of a station whose weather comes from `url`.
bool WriteFolder(const QTemporaryDir &folder, const QString &url)
{
    QFile profiles(folder.filePath(u"TavrinWeatherProfiles.ini"_s));
    QFile shipped(QStringLiteral(TAVRIN_SHIPPED_PROFILES));
    QFile settings(folder.filePath(u"TavrinWeatherSettings.ini"_s));
    if (!profiles.open(QIODevice::WriteOnly) || !settings.open(QIODevice::WriteOnly)
        || !shipped.open(QIODevice::ReadOnly))
        return false;
    // The shipped ones behind the one that is used, so that there is as much to read as in use.
    profiles.write("[Profile0]\ntitle=Service\nbaseURL=" + url.toUtf8()
                   + "%LOC1%\nlocation1Title=Page\nmainNodeOpen=<o>\nmainNodeClose=</o>\n"
                     "temperatureOpen=<t>\ntemperatureClose=<\n"
                   + shipped.readAll());
    settings.write("[Profile0]\nlocation1=small\n[Settings]\nForecastZone=\n");
    return true;
}

void PrintRow(const char *what, const Figures &figures, const Figures &own)
{
    std::printf("%-20s %8.1f ms %8.3f %9.0f KiB %8.3f\n", what, Median(figures.start),
                Median(own.start) / Median(figures.start), Median(figures.idle),
                Median(own.idle) / Median(figures.idle));
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    Figures own;
    Figures bare;
    for (int run = 0; run < kRuns; ++run) {
        const QTemporaryDir folder;
        const auto prepareOwn = [&](QProcess &process, const QString &url) {
            auto environment = QProcessEnvironment::systemEnvironment();
            environment.insert(u"TAVRIN_WEATHER_FOLDER"_s, folder.path());
            process.setProcessEnvironment(environment);
            process.setProgram(QStringLiteral(TAVRIN_SERVICE));
            if (!WriteFolder(folder, url))
                std::fprintf(stderr, "The service's folder could not be written.\n");
        };
        const auto prepareBare = [](QProcess &process, const QString &url) {
            process.setProgram(QStringLiteral(TAVRIN_BARE_SERVICE));
            process.setArguments({url + u"small"_s});
        };
        if (!Add(own, prepareOwn) || !Add(bare, prepareBare)) {
            std::fprintf(stderr, "A program did not run to its end.\n");
            return 1;
        }
    }
    std::printf("%-20s %11s %8s %13s %8s\n", "the program", "to request", "own is", "memory",
                "own is");
    PrintRow("the service", own, own);
    PrintRow("a bare program", bare, own);
    return 0;
}
