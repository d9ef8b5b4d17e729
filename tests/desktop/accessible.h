#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QHash>
#include <QList>
#include <QRect>
#include <QString>

#include <optional>

class QDBusArgument;
class QDBusMessage;

/// Names an object of a program on the bus, as assistive technology does.
struct ObjectReference
{
    QString service = {};
    QDBusObjectPath path = {};
};
Q_DECLARE_METATYPE(ObjectReference)

QDBusArgument &operator<<(QDBusArgument &argument, const ObjectReference &reference);
const QDBusArgument &operator>>(const QDBusArgument &argument, ObjectReference &reference);

/// What assistive technology is told of a window or a control in a running program. Everything is
/// asked afresh; of a control that is gone, everything is empty.
class Accessible
{
public:
    /// Numbers as on the bus.
    enum class State
    {
        Checked = 4,
        Enabled = 8,
        Focused = 12,
        Showing = 25, ///< Neither hidden itself nor with one of its parents.
    };

    Accessible(QDBusConnection bus, ObjectReference object);

    [[nodiscard]] QString Name() const;        ///< What it is called, or a label's text.
    [[nodiscard]] QString Description() const; ///< The control's name in the program.
    [[nodiscard]] QString Text() const;        ///< What is in a box; otherwise the name.
    [[nodiscard]] bool Is(State state) const;
    [[nodiscard]] QRect OnScreen() const;
    [[nodiscard]] QList<Accessible> Children() const;

private:
    [[nodiscard]] QDBusMessage Call(const char *interface, const char *method,
                                    const QVariantList &arguments = {}) const;
    [[nodiscard]] QString Property(const char *interface, const char *name) const;

    QDBusConnection m_bus;
    ObjectReference m_object;
};

/// Tells programs on which bus to meet assistive technology: on the one they ask on.
class AccessibilityBus final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.a11y.Bus")

public:
    AccessibilityBus(QDBusConnection bus, QString address);

public Q_SLOTS:
    [[nodiscard]] QString GetAddress() const { return m_address; }

private:
    QString m_address;
};

/// Where programs and assistive technology meet: programs report here by themselves.
class AccessibilityRegistry final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.a11y.atspi.Socket")

public:
    explicit AccessibilityRegistry(QDBusConnection bus);

    /// The root of what the process shows; nothing until it has reported.
    [[nodiscard]] std::optional<Accessible> Program(qint64 processId) const;

public Q_SLOTS:
    /// A program reports with the root of its objects; it is told the root of the desktop.
    ObjectReference Embed(const ObjectReference &root, const QDBusMessage &message);

private:
    QDBusConnection m_bus;
    QHash<qint64, ObjectReference> m_roots; ///< By process.
};
