#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

/// Tells whether a panel that takes icons over D-Bus (as StatusNotifierItem) has registered with
/// the watcher that leads them together. The watcher alone shows nothing.
class NotifierHost final : public QObject
{
    Q_OBJECT

public:
    NotifierHost();

    [[nodiscard]] bool IsThere() const { return m_isThere; }

Q_SIGNALS:
    void Changed();

private Q_SLOTS:
    void Ask();     ///< Of the watcher; the answer comes later.
    void LoseBus(); ///< With the bus all of it is gone.

private:
    void Set(bool isThere);

    QDBusServiceWatcher m_watcher;
    bool m_isThere = false;
};
