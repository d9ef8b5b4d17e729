#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <sys/prctl.h>

#include <chrono>
#include <csignal>

/// One of the project's programs, started by a test. It never outlives the test.
class ChildProgram
{
public:
    explicit ChildProgram(
        const QString &program, const QStringList &arguments = {},
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
        const QString &folder = {})
    {
        m_process.setWorkingDirectory(folder);
        m_process.setProcessEnvironment(environment);
        // Also when the test is killed, by a time-out for example.
        m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
        m_process.start(program, arguments);
        m_processId = m_process.processId();
    }
    ~ChildProgram()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(ChildProgram)

    /// The first line that the program prints, without its end; empty if none comes.
    [[nodiscard]] QString FirstLine()
    {
        const QDeadlineTimer deadline(kPatience);
        while (!m_process.canReadLine() && !deadline.hasExpired()
               && m_process.waitForReadyRead(int(deadline.remainingTime()))) {
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }

    /// Gives the program something to read.
    void Write(const QByteArray &bytes)
    {
        m_process.write(bytes);
        m_process.waitForBytesWritten();
    }

    /// Also after its end; 0 when it could not be started.
    [[nodiscard]] qint64 ProcessId() const { return m_processId; }

    /// False once it has ended, or if it could not be started. Looks at the process itself, so that
    /// the answer holds without an event loop.
    [[nodiscard]] bool IsRunning()
    {
        return m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(0);
    }

    /// Asks the program to end, as the system does.
    void Terminate() { m_process.terminate(); }

    /// Ends it without asking.
    void Kill() { m_process.kill(); }

    /// Waits for the program's end.
    /// @return its exit code; -1 if it did not end or crashed.
    [[nodiscard]] int ExitCode()
    {
        if (m_process.state() != QProcess::NotRunning
            && !m_process.waitForFinished(int(kPatience.count())))
            return -1;
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    [[nodiscard]] QByteArray Output() { return m_process.readAllStandardOutput(); }
    [[nodiscard]] QByteArray Errors() { return m_process.readAllStandardError(); }

private:
    static constexpr std::chrono::milliseconds kPatience{20'000};

    QProcess m_process;
    qint64 m_processId = 0;
};
