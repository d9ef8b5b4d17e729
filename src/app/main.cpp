#include "app/frm_main.h"
#include "app/session_lock.h"
#include "app/start_up.h"
#include "app/unix_signals.h"
#include "controls/control.h"
#include "core/trace_sink.h"
#include "graph/frm_graphics.h"
#include "net/curl_transfers.h"
#include "tray/system_panel_icon.h"

#include <QApplication>
#include <QSessionManager>

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

void TakeFolder(ProgramState &state)
{
    const auto [folder, problem] = FindProgramFolder(QCoreApplication::applicationDirPath());
    state.files.folder = folder;
    state.folderProblem = problem;
    if (!problem.isEmpty())
        PrintProblem(problem);
}

/// True when another copy has the session; that copy shows its window then.
bool IsRunningAlready(SessionLock &lock, const ProgramFiles &files)
{
    const SessionLock::Outcome outcome = lock.Take();
    if (outcome == SessionLock::Outcome::Taken) // so nobody is at work on these files
        files.RemoveLeftovers();
    if (outcome != SessionLock::Outcome::Held)
        return false; // without a lock the program's work goes on as it can
    PrintProblem(u"this session is running already. If it is not, delete "_s + lock.Path());
    lock.CallHolder();
    return true;
}

/// What comes from outside the window: the ways to an end that do not lead over its title bar, the
/// end itself, and the call for the window.
void ConnectEvents(QApplication &app, frmMain &window, UnixSignals &unixSignals)
{
    QObject::connect(&unixSignals, &UnixSignals::EndRequested, &window,
                     [&window] { window.Unload(UnloadMode::Signal); });
    QObject::connect(&unixSignals, &UnixSignals::WindowRequested, &window, &frmMain::ShowWindow);
    QObject::connect(&app, &QGuiApplication::commitDataRequest, &window,
                     [&window](QSessionManager &) { window.Unload(UnloadMode::DesktopSession); });
    // Queued: the routine that ended the program, and a session manager's question, come to their
    // own end first.
    QObject::connect(
        &window, &frmMain::Unloaded, &app, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

} // namespace

int main(int argc, char *argv[])
{
    const QString command = CommandText(argc, argv); // before Qt takes its own options out
    if (const auto answer = ConsoleAnswer(command))  // --help, --version: no display needed
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
    ProgramState state;
    TakeFolder(state);
    UnixSignals::IgnoreCalls();
    state.files.SessionId = SessionOf(command);
    SessionLock lock(state.files.Lock());
    if (IsRunningAlready(lock, state.files))
        return 0;
    UnixSignals unixSignals; // from here on they wait until there is somebody to answer them
    frmMain window(state, platform, AskYesNo);
    DescribeControlsOnRequest(window);

    if (const auto problem = window.Form_Load(command)) { // else shows the window, or minimises it
        QObject::connect(&unixSignals, &UnixSignals::EndRequested, &app,
                         &QApplication::closeAllWindows);
        PrintProblem(*problem);
        ShowFatalProblem(*problem, kPatience);
        return 1;
    }
    // Not before: what has not been loaded must not be saved when a signal comes.
    ConnectEvents(app, window, unixSignals);
    return QApplication::exec();
}
