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

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

// The only thing a signal handler may touch; -1: no object listens.
std::array<int, 2> signalPipe{-1, -1};

void Handle(int /*number*/)
{
    const int before = errno;
    const char byte = 0;
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

void SetHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = int(SA_RESTART | SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    for (const int number : kSignals) {
        if (!IsToBeIgnored(number))
            sigaction(number, &action, nullptr);
    }
}

} // namespace

UnixSignals::UnixSignals(QObject *parent) : QObject(parent)
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their default effect
    m_notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &UnixSignals::Read);
    SetHandler(Handle);
}

UnixSignals::~UnixSignals()
{
    if (m_notifier == nullptr)
        return;
    SetHandler(SIG_DFL);
    delete m_notifier;
    for (int &end : signalPipe) {
        ::close(end);
        end = -1;
    }
}

void UnixSignals::Read()
{
    std::array<char, 16> bytes = {};
    while (::read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
    }
    Q_EMIT EndRequested();
}

#else

UnixSignals::UnixSignals(QObject *parent) : QObject(parent) {}
UnixSignals::~UnixSignals() = default;
void UnixSignals::Read() {}

#endif
