// Three sessions in one folder and two in another, each a process of its own with the real window
// and the real transfers, side by side: a request every second by a click on "Get Weather Now".
// Their files are read all the time; each must be whole and its own session's.
//
//   soak_sessions [seconds]                     600 by default
//   soak_sessions --one FOLDER [COMMAND]        one of the five

#include "net/curl_transfers.h"
#include "support/child_program.h"
#include "support/fake_panel_icon.h"
#include "support/whole_program.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <memory>
#include <vector>

using namespace std::chrono_literals;

namespace {

int Fail(const QString &what)
{
    std::fprintf(stderr, "soak_sessions: %s\n", qUtf8Printable(what));
    return 1;
}

QByteArray Bytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool Write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// One session: its place of observation tells its files from the others'.
struct Session
{
    QString folder = {};
    QString id = {};
    QByteArray station = {};
    QByteArray city = {}; ///< As the output file has it.
    std::unique_ptr<ChildProgram> process = {};

    [[nodiscard]] QString Path(const QString &stem) const
    {
        return folder + '/' + stem + id + ".ini";
    }
};

int RunSession(const QString &folder, const QString &command)
{
    const SystemClock clock;
    CurlTransfers http;
    FakePanelIcon panelIcon;
    const CommandLine commandLine = ReadCommandLine({command});
    WholeProgram program({.folder = folder, .SessionId = commandLine.sessionId},
                         {clock, http, panelIcon});
    frmMain &window = program.window;
    if (window.Form_Load(commandLine))
        return Fail("the window does not start");
    auto *button = window.findChild<QPushButton *>("btnGetWeather");
    QTimer clicks;
    QObject::connect(&clicks, &QTimer::timeout, &window,
                     [button] { QTest::mouseClick(button, Qt::LeftButton); });
    clicks.start(1s);
    return QApplication::exec(); // until it is ended from outside
}

/// @return what is wrong with the session's output file; empty when it is whole and its own.
QString Problem(const Session &session)
{
    const QByteArray bytes = Bytes(session.Path("Weather"));
    const QByteArrayList lines = bytes.split('\n');
    if (lines.size() != 19 || lines.front() != "[Weather]\r" || !lines.back().isEmpty())
        return "torn: " + bytes;
    if (lines[4] != "CITY=" + session.city + '\r')
        return "another session's: " + bytes;
    return {};
}

bool Prepare(std::vector<Session> &sessions, const QByteArray &host)
{
    for (const Session &session : sessions) {
        const QByteArray profiles =
            Bytes(TAVRIN_TEST_DATA "/e2e/observation_profiles.ini").replace("%HOST%", host);
        if (!Write(session.folder + "/TavrinWeatherProfiles.ini", profiles)
            || !Write(session.Path("TavrinWeatherSettings"),
                      "[Profile0]\r\nlocation1=" + session.station
                          + "\r\n[Settings]\r\nFirstRun=False\r\nMinimizeOnStartup=False\r\n"))
            return false;
    }
    return true;
}

void Start(Session &session)
{
    const QString command = session.id.isEmpty() ? QString() : "/SESSION=" + session.id;
    session.process = std::make_unique<ChildProgram>(QCoreApplication::applicationFilePath(),
                                                     QStringList{"--one", session.folder, command});
}

int RunAll(int seconds)
{
    ChildProgram host(TAVRIN_DEMO_HOST, {"--port", "0", "--time", "2026-03-14T20:00"});
    const QByteArray address = host.FirstLine().section(' ', -1).toLatin1();
    const QTemporaryDir first;
    const QTemporaryDir second;
    const QByteArray baltimore = "Baltimore-Washington[SP]International[SP]Airport,[SP]MD";
    const QByteArray seattle = "Seattle-Tacoma[SP]International[SP]Airport,[SP]WA";
    const QByteArray fairbanks = "Fairbanks[SP]International[SP]Airport,[SP]AK";
    std::vector<Session> sessions;
    sessions.push_back({first.path(), "", "KBWI", baltimore});
    sessions.push_back({first.path(), "2", "KSEA", seattle});
    sessions.push_back({first.path(), "3", "PAFA", fairbanks});
    sessions.push_back({second.path(), "", "KSEA", seattle});
    sessions.push_back({second.path(), "9", "KBWI", baltimore});
    if (!Prepare(sessions, address))
        return Fail("the folders cannot be written");
    for (Session &session : sessions)
        Start(session);
    const QDeadlineTimer start(30s);
    for (const Session &session : sessions) {
        while (!QFile::exists(session.Path("Weather"))) {
            if (start.hasExpired())
                return Fail("no " + session.Path("Weather"));
        }
    }

    qint64 reads = 0;
    for (const QDeadlineTimer end(std::chrono::seconds{seconds}); !end.hasExpired();) {
        for (const Session &session : sessions) {
            ++reads;
            if (const QString problem = Problem(session); !problem.isEmpty())
                return Fail(session.Path("Weather") + " is " + problem);
        }
    }
    std::printf("soak_sessions: %lld reads in %d s, all whole and their own\n",
                static_cast<long long>(reads), seconds);
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList arguments; // all of them: the toolkit takes some for its own
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const QApplication app(argc, argv);
    if (arguments.value(0) == "--one")
        return RunSession(arguments.value(1), arguments.value(2));
    if (arguments.size() > 1)
        return Fail("usage: soak_sessions [seconds]");
    return RunAll(arguments.isEmpty() ? 600 : arguments[0].toInt());
}
