#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns SIGTERM, SIGINT and SIGHUP into a signal of the event loop. One object at a time.
///
/// A second one of them ends the process in the system's own way, should the first have had no
/// effect. On systems without these signals it does nothing.
class UnixSignals final : public QObject
{
    Q_OBJECT

public:
    explicit UnixSignals(QObject *parent = nullptr);
    ~UnixSignals() override;
    Q_DISABLE_COPY_MOVE(UnixSignals)

Q_SIGNALS:
    void EndRequested();

private:
    void Read();

    QSocketNotifier *m_notifier = nullptr;
};
