#include "tray/notifier_host.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kWatcher = u"org.kde.StatusNotifierWatcher"_s; // name of service and interface
const QString kWatcherPath = u"/StatusNotifierWatcher"_s;
constexpr int kFirstAnswerMilliseconds = 1000;

QDBusMessage Question()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        kWatcher, kWatcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message.setArguments({kWatcher, u"IsStatusNotifierHostRegistered"_s});
    message.setAutoStartService(false); // the question must not start the watcher
    return message;
}

bool IsYes(const QDBusPendingReply<QDBusVariant> &reply)
{
    return reply.isValid() && reply.value().variant().toBool();
}

} // namespace

NotifierHost::NotifierHost()
    : m_watcher(kWatcher, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange)
{
    QDBusConnection bus = m_watcher.connection();
    if (!bus.isConnected())
        return;
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &NotifierHost::Ask);
    // The bus's signals can be connected only by name.
    for (const char *signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        bus.connect(kWatcher, kWatcherPath, kWatcher, QString::fromLatin1(signal), this,
                    SLOT(Ask()));
    bus.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                u"Disconnected"_s, this, SLOT(LoseBus()));

    // Waits for the answer, so that a window that starts minimised goes to the tray at once.
    const QDBusMessage first = bus.call(Question(), QDBus::Block, kFirstAnswerMilliseconds);
    if (first.type() == QDBusMessage::ReplyMessage)
        m_isThere = IsYes(QDBusPendingReply<QDBusVariant>(first));
    else
        Ask(); // a busy watcher may still answer
}

void NotifierHost::Ask()
{
    auto *answer = new QDBusPendingCallWatcher(m_watcher.connection().asyncCall(Question()), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        Set(IsYes(*answer));
        answer->deleteLater();
    });
}

void NotifierHost::LoseBus()
{
    Set(false);
}

void NotifierHost::Set(bool isThere)
{
    if (std::exchange(m_isThere, isThere) != isThere)
        Q_EMIT Changed();
}
