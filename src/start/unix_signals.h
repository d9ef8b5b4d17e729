#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns the system's signals to a program into signals of the event loop. One object at a time.
///
/// - SIGTERM and SIGINT ask for the end.
/// - SIGHUP asks the window's program for the end, unless the signal was ignored before, and the
///   service to read its files again.
/// - SIGUSR1, sent by another start of the session, asks for the window; the service ignores it.
///
/// A second signal that asks for the end has the system's default effect, in case the first had
/// none. On systems without these signals the class does nothing.
class UnixSignals final : public QObject
{
    Q_OBJECT

public:
    enum class Program
    {
        Window,
        Service,
    };

    explicit UnixSignals(Program program = Program::Window, QObject *parent = nullptr);
    ~UnixSignals() override;
    Q_DISABLE_COPY_MOVE(UnixSignals)

    /// Ignores SIGUSR1, and in the service SIGHUP. Call it before others can know this process.
    static void IgnoreCalls(Program program = Program::Window);

Q_SIGNALS:
    void EndRequested();
    void ReloadRequested();
    void WindowRequested();

private:
    void Read();

    Program m_program;
    QSocketNotifier *m_notifier = nullptr;
};
