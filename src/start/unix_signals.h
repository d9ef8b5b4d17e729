#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns the system's signals to a program into signals of the event loop. One object at a time.
///
/// | signal          | in the window's program                           | in the service |
/// |-----------------|---------------------------------------------------|-------------------------|
/// | SIGTERM, SIGINT | ask for the end                                   | ask for the end | |
/// SIGHUP          | asks for the end, unless it was ignored before    | asks for a fresh look   |
/// | SIGUSR1         | another start of the session asks for the window  | ignored |
///
/// A second one that asks for the end ends the process in the system's own way, should the first
/// have had no effect. On systems without these signals it does nothing.
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

    /// Makes SIGUSR1 harmless, and in the service SIGHUP; to be called before others can know this
    /// process.
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
