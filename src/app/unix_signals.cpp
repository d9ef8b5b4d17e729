#include "app/unix_signals.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace {

constexpr std::array kEndSignals{SIGTERM, SIGINT, SIGHUP};

// The only thing a signal handler may touch; -1: no object listens.
std::array<int, 2> signalPipe{-1, -1};

constexpr char kEnd = 'E';
constexpr char kWindow = 'W';

void Handle(int number)
{
    const int before = errno;
    const char byte = number == SIGUSR1 ? kWindow : kEnd;
    // A full pipe has said it already.
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = before;
}

/// True for SIGHUP in a process that was started so that it survives it, with nohup for example.
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

void SetEndHandler(void (*handler)(int))
{
    for (const int number : kEndSignals) {
        if (!IsToBeIgnored(number))
            SetAction(number, handler, int(SA_RESTART | SA_RESETHAND));
    }
}

} // namespace

UnixSignals::UnixSignals(QObject *parent) : QObject(parent)
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their default effect
    m_notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &UnixSignals::Read);
    SetEndHandler(Handle);
    SetAction(SIGUSR1, Handle, SA_RESTART);
}

UnixSignals::~UnixSignals()
{
    if (m_notifier == nullptr)
        return;
    SetEndHandler(SIG_DFL);
    IgnoreCalls();
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
    char byte = 0;
    while (::read(signalPipe[0], &byte, 1) > 0) {
        end = end || byte == kEnd;
        window = window || byte == kWindow;
    }
    if (end)
        Q_EMIT EndRequested();
    else if (window)
        Q_EMIT WindowRequested();
}

void UnixSignals::IgnoreCalls()
{
    SetAction(SIGUSR1, SIG_IGN, 0);
}

#else

UnixSignals::UnixSignals(QObject *parent) : QObject(parent) {}
UnixSignals::~UnixSignals() = default;
void UnixSignals::Read() {}
void UnixSignals::IgnoreCalls() {}

#endif
