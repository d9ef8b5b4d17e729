#include "desktop/status_notifier_watcher.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <cstdio>

using namespace Qt::StringLiterals;

StatusNotifierWatcher::StatusNotifierWatcher(QDBusConnection bus)
{
    m_owners.setConnection(bus);
    m_owners.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_owners, &QDBusServiceWatcher::serviceUnregistered, this,
            &StatusNotifierWatcher::Forget);
    bus.registerObject(u"/StatusNotifierWatcher"_s, this,
                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals
                           | QDBusConnection::ExportAllProperties);
}

void StatusNotifierWatcher::RegisterStatusNotifierItem(const QString &service)
{
    if (m_items.contains(service))
        return;
    m_items.append(service);
    m_owners.addWatchedService(service);
    Q_EMIT StatusNotifierItemRegistered(service);
    // Nobody reports one that went before it was watched.
    if (!m_owners.connection().interface()->isServiceRegistered(service).value())
        Forget(service);
}

void StatusNotifierWatcher::RegisterStatusNotifierHost(const QString & /*service*/) {}

void StatusNotifierWatcher::Forget(const QString &service)
{
    m_items.removeAll(service);
    Q_EMIT StatusNotifierItemUnregistered(service);
}

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    auto bus = QDBusConnection::sessionBus();
    const StatusNotifierWatcher watcher(bus);
    if (!bus.registerService(u"org.kde.StatusNotifierWatcher"_s)) {
        std::fputs("cannot take the name of the watcher\n", stderr);
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
