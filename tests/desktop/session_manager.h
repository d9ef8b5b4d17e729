#pragma once

#include "support/child_program.h"

#include <QByteArrayList>
#include <QString>
#include <QStringList>

/// A session manager for one program on a test's desktop. It runs in a process of its own.
class SessionManager
{
public:
    SessionManager();

    /// Its name for the environment variable SESSION_MANAGER; empty when it could not be started.
    [[nodiscard]] QString Address() const { return m_address; }

    /// Waits until the program has come: as a new client, or with its id of an earlier session.
    [[nodiscard]] bool HasNewClient();
    [[nodiscard]] bool HasClient(const QString &id);

    /// Has the program save its state while the session goes on, and waits until it is done.
    [[nodiscard]] bool Checkpoint() { return Order("checkpoint", "saved"); }

    /// Asks the program to save its state before a log-out, and waits until it is done.
    [[nodiscard]] bool BeginLogOut() { return Order("log out", "saved"); }

    void CancelLogOut() { m_process.Write("cancel\n"); }

    /// Ends the session. Waits until the program has said goodbye.
    [[nodiscard]] bool EndSession() { return Order("die", "closed"); }

    /// How the program wants to be started in the next session.
    [[nodiscard]] QStringList RestartCommand();

    [[nodiscard]] QByteArrayList Said() const { return m_said; } ///< For a test that has failed.

private:
    [[nodiscard]] bool Order(const QByteArray &order, const QByteArray &answer);
    [[nodiscard]] bool WaitFor(const QByteArray &line);

    void Listen();

    ChildProgram m_process;
    QString m_address;
    QByteArray m_unread;
    QByteArrayList m_said;
    qsizetype m_awaited = 0; ///< How many of the lines have been waited for.
};
