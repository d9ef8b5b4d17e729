#include "start/unix_signals.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace {

// The only thing a signal handler may touch; -1: no object listens.
std::array<int, 2> signalPipe{-1, -1};

constexpr char kEnd = 'E';
constexpr char kWindow = 'W';
constexpr char kReload = 'R';

void Send(char byte)
{
    const int before = errno;
    // A full pipe holds the message already.
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = before;
}

void End(int /*number*/)
{
    Send(kEnd);
}

void ShowWindow(int /*number*/)
{
    Send(kWindow);
}

void Reload(int /*number*/)
{
    Send(kReload);
}

/// True for SIGHUP in a process that was started to survive it, with nohup for example.
bool IsToBeIgnored(int number)
{
    struct sigaction before = {};
    return number == SIGHUP && sigaction(number, nullptr, &before) == 0
        && before.sa_handler == SIG_IGN;
}

void SetAction(int number, void (*handler)(int), int flags)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(number, &action, nullptr);
}

void SetEndHandler(UnixSignals::Program program, void (*handler)(int))
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        const bool asksForTheEnd = number != SIGHUP || program == UnixSignals::Program::Window;
        if (asksForTheEnd && !IsToBeIgnored(number))
            SetAction(number, handler, int(SA_RESTART | SA_RESETHAND));
    }
}

} // namespace

UnixSignals::UnixSignals(Program program, QObject *parent) : QObject(parent), m_program(program)
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their default effect
    m_notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &UnixSignals::Read);
    SetEndHandler(m_program, End);
    if (m_program == Program::Window)
        SetAction(SIGUSR1, ShowWindow, SA_RESTART);
    else
        SetAction(SIGHUP, Reload, SA_RESTART);
}

UnixSignals::~UnixSignals()
{
    if (m_notifier == nullptr)
        return;
    SetEndHandler(m_program, SIG_DFL);
    IgnoreCalls(m_program);
    delete m_notifier;
    for (int &end : signalPipe) {
        ::close(end);
        end = -1;
    }
}

void UnixSignals::Read()
{
    bool end = false;
    bool window = false;
    bool reload = false;
    char byte = 0;
    while (::read(signalPipe[0], &byte, 1) > 0) {
        end = end || byte == kEnd;
        window = window || byte == kWindow;
        reload = reload || byte == kReload;
    }
    if (end)
        Q_EMIT EndRequested();
    else if (window)
        Q_EMIT WindowRequested();
    else if (reload)
        Q_EMIT ReloadRequested();
}

void UnixSignals::IgnoreCalls(Program program)
{
    SetAction(SIGUSR1, SIG_IGN, 0);
    if (program == Program::Service)
        SetAction(SIGHUP, SIG_IGN, 0);
}

#else

UnixSignals::UnixSignals(Program program, QObject *parent) : QObject(parent), m_program(program) {}
UnixSignals::~UnixSignals() = default;
void UnixSignals::Read() {}
void UnixSignals::IgnoreCalls(Program /*program*/) {}

#endif
