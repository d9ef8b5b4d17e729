#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QStringList>

/// Where programs report their status icons and panels find them. It says that a panel is there;
/// the test that started it is the panel.
class StatusNotifierWatcher final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ Items)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ HasHost)
    Q_PROPERTY(int ProtocolVersion READ Version)

public:
    explicit StatusNotifierWatcher(QDBusConnection bus);

    [[nodiscard]] QStringList Items() const { return m_items; }
    [[nodiscard]] static bool HasHost() { return true; }
    [[nodiscard]] static int Version() { return 0; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString &service);
    void RegisterStatusNotifierHost(const QString &service);

Q_SIGNALS:
    void StatusNotifierItemRegistered(const QString &service);
    void StatusNotifierItemUnregistered(const QString &service);
    void StatusNotifierHostRegistered();

private:
    void Forget(const QString &service);

    QDBusServiceWatcher m_owners;
    QStringList m_items;
};
