#include "core/clock.h"
#include "core/trace_sink.h"
#include "net/curl_transfers.h"
#include "service/one_round.h"
#include "service/service.h"
#include "service/setup.h"
#include "start/command_line.h"
#include "start/exit_code.h"
#include "start/program_folder.h"
#include "start/session_lock.h"
#include "start/unix_signals.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kSecond = 1000ms;
constexpr auto kPatienceAtEnd = 2000ms; // with files that are being stored

void Print(const QString &text)
{
    std::fputs(qUtf8Printable(text), stdout);
}

void PrintProblem(const QString &problem)
{
    std::fprintf(stderr, "TavrinWeatherService: %s\n", qUtf8Printable(problem));
}

ProgramFiles FindFiles(const CommandLine &command)
{
    const ProgramFolder found = FindProgramFolder(QCoreApplication::applicationDirPath());
    if (!found.problem.isEmpty())
        PrintProblem(found.problem);
    return {.folder = found.folder, .codePage = command.codePage, .SessionId = command.sessionId};
}

/// @return false when another copy has the session.
bool LockSession(SessionLock &lock, const ProgramFiles &files)
{
    const SessionLock::Outcome outcome = lock.Take();
    if (outcome == SessionLock::Outcome::Taken) // nobody else is at work on these files
        RemoveLeftovers(files);
    if (outcome != SessionLock::Outcome::Held)
        return true; // without a lock the program still works as well as it can
    const std::optional<LockHolder> holder = lock.Holder();
    PrintProblem(holder
                     ? HeldByText(*holder)
                     : u"this session is running already. If it is not, delete "_s + lock.Path());
    return false;
}

ExitCode Check(Station &station)
{
    if (const auto problem = BringUp(station)) {
        PrintProblem(*problem);
        return ExitCode::NothingSetUp;
    }
    Print(SetupReport(station));
    return IsAnythingSetUp(station) ? ExitCode::Done : ExitCode::NothingSetUp;
}

/// Runs the event loop until it is asked to end, then lets files that are being stored finish.
void RunEventLoop(Station &station, const UnixSignals &unixSignals)
{
    QObject::connect(&unixSignals, &UnixSignals::EndRequested, QCoreApplication::instance(),
                     &QCoreApplication::quit);
    QCoreApplication::exec();
    station.End(kPatienceAtEnd);
}

ExitCode RunOnce(Station &station, const UnixSignals &unixSignals)
{
    OneRound round(station, PrintProblem);
    round.Start();
    QTimer poll;
    poll.callOnTimeout([&round] {
        round.Poll();
        if (round.IsDone())
            QCoreApplication::quit();
    });
    poll.start(Station::kPollInterval);
    RunEventLoop(station, unixSignals);
    return round.Result();
}

ExitCode RunOn(Station &station, const UnixSignals &unixSignals)
{
    Service service(station, PrintProblem);
    QObject::connect(&unixSignals, &UnixSignals::ReloadRequested, QCoreApplication::instance(),
                     [&service] { service.Reload(); });
    service.Start();
    QTimer poll;
    QTimer second;
    for (QTimer *timer : {&poll, &second})
        timer->setTimerType(Qt::CoarseTimer); // lets the system wake up for several timers at once
    poll.callOnTimeout([&service] { service.Poll(); });
    second.callOnTimeout([&service] { service.TickSecond(); });
    poll.start(Station::kPollInterval);
    second.start(kSecond);
    RunEventLoop(station, unixSignals);
    return ExitCode::Done;
}

ExitCode Run(const ServiceCommand &command)
{
    // Each uses those above it; they are destroyed in reverse order.
    const SystemClock clock;
    CurlTransfers http;
    DirectFileWriter writer;
    const ProgramFiles files = FindFiles(command.line);
    Station station(files, clock, http, writer, Owner::Service);
    if (command.isCheck)
        return Check(station);

    SessionLock lock(files.Lock());
    if (!LockSession(lock, files))
        return ExitCode::Held;
    // From here on signals wait until somebody can answer them.
    const UnixSignals unixSignals(UnixSignals::Program::Service);
    if (const auto problem = BringUp(station)) {
        PrintProblem(*problem);
        return ExitCode::NothingSetUp;
    }
    return command.isOnce ? RunOnce(station, unixSignals) : RunOn(station, unixSignals);
}

} // namespace

int main(int argc, char *argv[])
{
    // Before anything that takes time: signals must not end the program.
    UnixSignals::IgnoreCalls(UnixSignals::Program::Service);
    const ServiceCommand command = ReadServiceCommand(ArgumentsOf(argc, argv));
    if (const auto answer = ConsoleAnswer(command)) {
        Print(*answer);
        return int(ExitCode::Done);
    }
    if (!command.unknown.isEmpty()) {
        PrintProblem(u"there is no option "_s + command.unknown.join(u", "_s));
        return int(ExitCode::WrongUse);
    }
    const auto trace = OpenTraceSink(qEnvironmentVariable("TAVRIN_TRACE"));
    SetTraceListener(trace.get());
    const QCoreApplication app(argc, argv);
    TraceSession(command.line);
    return int(Run(command));
}
