#pragma once

#include "support/child_program.h"

#include <QDBusConnection>
#include <QString>

#include <memory>

/// A message bus that only one test's programs know. It starts no services.
class MessageBus
{
public:
    /// Starts the bus; its socket and its configuration are in `folder`.
    explicit MessageBus(const QString &folder);
    ~MessageBus();
    Q_DISABLE_COPY_MOVE(MessageBus)

    /// Where programs find it; empty when it could not be started.
    [[nodiscard]] QString Address() const { return m_address; }

    /// The test's own connection.
    [[nodiscard]] QDBusConnection Connection() const { return m_connection; }

private:
    std::unique_ptr<ChildProgram> m_daemon;
    QString m_address;
    QDBusConnection m_connection;
};
