#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns SIGTERM, SIGINT and SIGHUP, which ask for the end, and SIGUSR1, with which another start
/// of the same session asks for the window, into signals of the event loop. One object at a time.
///
/// A second one of the first three ends the process in the system's own way, should the first have
/// had no effect. On systems without these signals it does nothing.
class UnixSignals final : public QObject
{
    Q_OBJECT

public:
    explicit UnixSignals(QObject *parent = nullptr);
    ~UnixSignals() override;
    Q_DISABLE_COPY_MOVE(UnixSignals)

    /// Makes SIGUSR1 harmless; to be called before others can know this process.
    static void IgnoreCalls();

Q_SIGNALS:
    void EndRequested();
    void WindowRequested();

private:
    void Read();

    QSocketNotifier *m_notifier = nullptr;
};
