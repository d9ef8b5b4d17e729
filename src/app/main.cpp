#include "app/frm_main.h"
#include "app/start_up.h"
#include "app/unix_signals.h"
#include "controls/control.h"
#include "core/trace_sink.h"
#include "net/curl_transfers.h"

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

/// The ways to an end that do not lead over the window's title bar, and the end itself.
void ConnectEnd(QApplication &app, frmMain &window, UnixSignals &endSignals)
{
    QObject::connect(&endSignals, &UnixSignals::EndRequested, &window,
                     [&window] { window.Unload(UnloadMode::Signal); });
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
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false); // the window decides what ends the program

    // Made from the outside in, destroyed from the inside out.
    const SystemClock clock;
    CurlTransfers http;
    const Platform platform{clock, http};
    ProgramState state;
    TakeFolder(state);
    frmMain window(state, platform, AskYesNo);
    DescribeControlsOnRequest(window);

    if (const auto problem = window.Form_Load(command)) { // else shows the window, or minimises it
        PrintProblem(*problem);
        ShowFatalProblem(*problem, kPatience);
        return 1;
    }
    // Not before: what has not been loaded must not be saved when a signal comes.
    UnixSignals endSignals;
    ConnectEnd(app, window, endSignals);
    return QApplication::exec();
}
