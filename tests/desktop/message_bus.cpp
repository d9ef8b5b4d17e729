#include "desktop/message_bus.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// Anyone who may connect may do everything, and no service is started on demand.
const QString kConfiguration = uR"(<busconfig>
<type>session</type>
<listen>unix:dir=%1</listen>
<auth>EXTERNAL</auth>
<policy context="default">
<allow send_destination="*"/>
<allow receive_sender="*"/>
<allow own="*"/>
</policy>
</busconfig>
)"_s;

/// The names by which a test's connections are told apart.
QString ConnectionName(const MessageBus *bus)
{
    return u"test-"_s + QString::number(quintptr(bus));
}

} // namespace

MessageBus::MessageBus(const QString &folder) : m_connection(QString())
{
    const QString configuration = folder + "/bus.conf";
    QFile file(configuration);
    if (!file.open(QIODevice::WriteOnly)
        || file.write(kConfiguration.arg(folder.toHtmlEscaped()).toUtf8()) < 0)
        return;
    file.close();
    m_daemon = std::make_unique<ChildProgram>(
        u"dbus-daemon"_s, QStringList{"--config-file=" + configuration, "--print-address=1"});
    m_address = m_daemon->FirstLine();
    m_connection = QDBusConnection::connectToBus(m_address, ConnectionName(this));
}

MessageBus::~MessageBus()
{
    QDBusConnection::disconnectFromBus(ConnectionName(this));
}
