#include "app/desktop_environment.h"
#include "app/desktop_session.h"
#include "app/frm_main.h"
#include "controls/control.h"
#include "core/trace_sink.h"
#include "graph/frm_graphics.h"
#include "net/curl_transfers.h"
#include "start/command_line.h"
#include "start/exit_code.h"
#include "start/program_folder.h"
#include "start/session_lock.h"
#include "start/unix_signals.h"
#include "tray/system_panel_icon.h"

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 60s; // an unattended start must not hang at a message box

int PrintAnswer(const QString &answer)
{
    std::fputs(qUtf8Printable(answer), stdout);
    return 0;
}

void PrintProblem(const QString &problem)
{
    std::fprintf(stderr, "TavrinWeatherUtility: %s\n", qUtf8Printable(problem));
}

/// Finds the session's files. If their folder is unusable, the reason goes to stderr and `problem`.
ProgramFiles FindFiles(const CommandLine &command, QString &problem)
{
    const ProgramFolder found = FindProgramFolder(QCoreApplication::applicationDirPath());
    problem = found.problem;
    if (!problem.isEmpty())
        PrintProblem(problem);
    return {.folder = found.folder, .codePage = command.codePage, .SessionId = command.sessionId};
}

/// Says in a box, too, that a program has the session that has no window to show.
ExitCode GiveWayToService(const LockHolder &holder)
{
    const UnixSignals unixSignals; // from the first word on
    QObject::connect(&unixSignals, &UnixSignals::EndRequested, qApp,
                     &QApplication::closeAllWindows);
    const QString problem = HeldByText(holder);
    PrintProblem(problem);
    ShowFatalProblem(problem.first(1).toUpper() + problem.sliced(1) + u'.', kPatience);
    return ExitCode::Held;
}

/// What to end with when another copy has the session. That copy shows its window then, if it has
/// one.
std::optional<ExitCode> GiveWay(SessionLock &lock, const ProgramFiles &files)
{
    const SessionLock::Outcome outcome = lock.Take();
    if (outcome == SessionLock::Outcome::Taken) // so no other copy writes these files
        RemoveLeftovers(files);
    if (outcome != SessionLock::Outcome::Held)
        return std::nullopt; // without a lock the program's work goes on as it can
    const std::optional<LockHolder> holder = lock.Holder();
    if (holder && IsService(*holder))
        return GiveWayToService(*holder);
    PrintProblem(u"this session is running already. If it is not, delete "_s + lock.Path());
    lock.CallHolder();
    return ExitCode::Done;
}

/// Connects what comes from outside the window: requests to end that bypass its title bar, the end
/// itself, and requests to show the window.
void ConnectEvents(QApplication &app, frmMain &window, UnixSignals &unixSignals,
                   DesktopSession &session)
{
    QObject::connect(&unixSignals, &UnixSignals::EndRequested, &window,
                     [&window] { window.Unload(UnloadMode::Signal); });
    QObject::connect(&unixSignals, &UnixSignals::WindowRequested, &window, &frmMain::ShowWindow);
    QObject::connect(&session, &DesktopSession::SaveRequested, &window, &frmMain::SaveSettings);
    QObject::connect(&session, &DesktopSession::EndRequested, &window,
                     [&window] { window.Unload(UnloadMode::DesktopSession); });
    // Queued, so that the routine that ended the program can return first.
    QObject::connect(
        &window, &frmMain::Unloaded, &app, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

} // namespace

int main(int argc, char *argv[])
{
    UnixSignals::IgnoreCalls(); // before anything that takes time: a call must not end the program
    // Read before Qt takes its own options out.
    const CommandLine command = ReadCommandLine(ArgumentsOf(argc, argv));
    if (const auto answer = ConsoleAnswer(command)) // --help, --version: no display needed
        return PrintAnswer(*answer);

    const auto trace = OpenTraceSink(qEnvironmentVariable("TAVRIN_TRACE"));
    SetTraceListener(trace.get());
    PreferX11();
    PaintThroughConnection();
    QApplication app(argc, argv);
    QApplication::setWindowIcon(ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false); // the window decides what ends the program

    // Made from the outside in, destroyed from the inside out.
    const SystemClock clock;
    CurlTransfers http;
    SystemPanelIcon panelIcon;
    const Platform platform{clock, http, panelIcon};
    WindowMemory memory;
    const ProgramFiles files = FindFiles(command, memory.folderProblem);
    SessionLock lock(files.Lock());
    if (const auto exitCode = GiveWay(lock, files))
        return int(*exitCode);
    UnixSignals unixSignals; // from here on signals wait until somebody answers them
    DirectFileWriter writer;
    Station station(files, clock, http, writer, Owner::Window);
    frmMain window(station, memory, platform, AskYesNo);
    DescribeControlsOnRequest(window);

    if (const auto problem = window.Form_Load(command)) { // else shows the window, or minimises it
        QObject::connect(&unixSignals, &UnixSignals::EndRequested, &app,
                         &QApplication::closeAllWindows);
        PrintProblem(*problem);
        ShowFatalProblem(*problem, kPatience);
        return 1;
    }
    // Connected only now, so that a signal cannot save settings that were never loaded.
    DesktopSession session(app, command.arguments);
    ConnectEvents(app, window, unixSignals, session);
    return QApplication::exec();
}
