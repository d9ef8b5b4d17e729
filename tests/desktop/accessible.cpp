#include "desktop/accessible.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr char kAccessible[] = "org.a11y.atspi.Accessible";
constexpr char kText[] = "org.a11y.atspi.Text";
constexpr char kComponent[] = "org.a11y.atspi.Component";
constexpr char kProperties[] = "org.freedesktop.DBus.Properties";

const QString kRegistry = u"org.a11y.atspi.Registry"_s;
const QString kRoot = u"/org/a11y/atspi/accessible/root"_s;
constexpr uint kFromScreen = 0; ///< The corner that positions are counted from.

} // namespace

QDBusArgument &operator<<(QDBusArgument &argument, const ObjectReference &reference)
{
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ObjectReference &reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

Accessible::Accessible(QDBusConnection bus, ObjectReference object)
    : m_bus(std::move(bus))
    , m_object(std::move(object))
{}

QDBusMessage Accessible::Call(const char *interface, const char *method,
                              const QVariantList &arguments) const
{
    auto call =
        QDBusMessage::createMethodCall(m_object.service, m_object.path.path(), interface, method);
    call.setArguments(arguments);
    return m_bus.call(call);
}

QString Accessible::Property(const char *interface, const char *name) const
{
    const QVariant value =
        Call(kProperties, "Get", {QString(interface), QString(name)}).arguments().value(0);
    return value.value<QDBusVariant>().variant().toString();
}

QString Accessible::Name() const
{
    return Property(kAccessible, "Name");
}

QString Accessible::Description() const
{
    return Property(kAccessible, "Description");
}

QString Accessible::Text() const
{
    const QDBusMessage answer = Call(kText, "GetText", {0, -1});
    if (answer.type() != QDBusMessage::ReplyMessage)
        return Name();
    return answer.arguments().value(0).toString();
}

bool Accessible::Is(State state) const
{
    constexpr int kBitsPerWord = 32;
    const auto words = qdbus_cast<QList<uint>>(Call(kAccessible, "GetState").arguments().value(0));
    const uint word = words.value(int(state) / kBitsPerWord);
    return ((word >> (uint(state) % kBitsPerWord)) & 1U) != 0;
}

QRect Accessible::OnScreen() const
{
    const QVariant answer = Call(kComponent, "GetExtents", {kFromScreen}).arguments().value(0);
    if (!answer.canConvert<QDBusArgument>())
        return {};
    return qdbus_cast<QRect>(answer); // a rectangle's four numbers
}

QList<Accessible> Accessible::Children() const
{
    const QVariant answer = Call(kAccessible, "GetChildren").arguments().value(0);
    QList<Accessible> children;
    if (answer.canConvert<QDBusArgument>()) {
        for (const auto &child : qdbus_cast<QList<ObjectReference>>(answer))
            children.append(Accessible(m_bus, child));
    }
    return children;
}

AccessibilityBus::AccessibilityBus(QDBusConnection bus, QString address)
    : m_address(std::move(address))
{
    bus.registerObject(u"/org/a11y/bus"_s, this, QDBusConnection::ExportAllSlots);
    bus.registerService(u"org.a11y.Bus"_s);
}

AccessibilityRegistry::AccessibilityRegistry(QDBusConnection bus) : m_bus(std::move(bus))
{
    qDBusRegisterMetaType<ObjectReference>();
    m_bus.registerObject(kRoot, this, QDBusConnection::ExportAllSlots);
    m_bus.registerService(kRegistry);
}

ObjectReference AccessibilityRegistry::Embed(const ObjectReference &root,
                                             const QDBusMessage &message)
{
    m_roots[m_bus.interface()->servicePid(message.service())] = root;
    return {m_bus.baseService(), QDBusObjectPath(kRoot)};
}

std::optional<Accessible> AccessibilityRegistry::Program(qint64 processId) const
{
    const auto root = m_roots.find(processId);
    if (root == m_roots.end())
        return std::nullopt;
    return Accessible(m_bus, *root);
}
