#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

/// Tells whether a panel that takes icons over D-Bus (as StatusNotifierItem) has registered with
/// the watcher, which brings panels and icons together. The watcher alone shows nothing.
class NotifierHost final : public QObject
{
    Q_OBJECT

public:
    /// Asks once and waits up to a second for the answer.
    NotifierHost();

    [[nodiscard]] bool IsThere() const { return m_isThere; }

Q_SIGNALS:
    void Changed(); ///< IsThere() has changed.

private Q_SLOTS:
    void Ask();     ///< Asks the watcher; the answer comes later.
    void LoseBus(); ///< Without the bus, neither watcher nor panel can be reached.

private:
    void Set(bool isThere);

    QDBusServiceWatcher m_watcher;
    bool m_isThere = false;
};
