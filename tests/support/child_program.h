#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <chrono>

/// A program of ours that a test started. It never outlives the test.
class ChildProgram
{
public:
    explicit ChildProgram(
        const QString &program, const QStringList &arguments = {},
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
    {
        m_process.setProcessEnvironment(environment);
        m_process.start(program, arguments);
    }
    ~ChildProgram()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(ChildProgram)

    /// The first line that the program prints, without its end; empty when it does not come.
    [[nodiscard]] QString FirstLine()
    {
        const QDeadlineTimer deadline(kPatience);
        while (!m_process.canReadLine() && !deadline.hasExpired()
               && m_process.waitForReadyRead(int(deadline.remainingTime()))) {
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }

    /// Asks the program to end, as the system does.
    void Terminate() { m_process.terminate(); }

    /// Waits for the program's end.
    /// @return its exit code; -1 when it did not end or crashed.
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
};
