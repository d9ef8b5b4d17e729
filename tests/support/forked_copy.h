#pragma once

#include <QtGlobal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

/// Another process of the test's own program, which only waits for signals. It ends with the test.
class ForkedCopy
{
public:
    static constexpr int kEnded = 0;  ///< When it was asked to end.
    static constexpr int kCalled = 7; ///< When it was called with SIGUSR1 before.

    enum class Start
    {
        Finished,
        JustBegun ///< Nothing is set up yet: SIGUSR1 has the system's own effect.
    };

    explicit ForkedCopy(Start start)
    {
        // In place from its first moment on.
        const auto calledBefore = SetAction(
            SIGUSR1, start == Start::JustBegun ? SIG_DFL : [](int) { ::_exit(kCalled); });
        const auto endBefore = SetAction(SIGTERM, [](int) { ::_exit(kEnded); });
        m_process = ::fork();
        if (m_process == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            for (;;)
                ::pause();
        }
        ::sigaction(SIGUSR1, &calledBefore, nullptr);
        ::sigaction(SIGTERM, &endBefore, nullptr);
    }
    ~ForkedCopy() { (void)End(); }
    Q_DISABLE_COPY_MOVE(ForkedCopy)

    [[nodiscard]] pid_t ProcessId() const { return m_process; }

    /// Asks it to end. An earlier call takes effect first.
    /// @return its exit code; negative: the number of the signal that killed it.
    int End()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGTERM);
            ::waitpid(m_process, &m_status, 0);
            m_process = -1;
        }
        return WIFEXITED(m_status) ? WEXITSTATUS(m_status) : -WTERMSIG(m_status);
    }

private:
    /// The other signals wait until the handler has run, so they take effect in the order in which
    /// they were sent.
    static struct sigaction SetAction(int number, void (*handler)(int))
    {
        struct sigaction before = {};
        struct sigaction action = {};
        action.sa_handler = handler;
        sigfillset(&action.sa_mask);
        ::sigaction(number, &action, &before);
        return before;
    }

    pid_t m_process = -1;
    int m_status = 0;
};
