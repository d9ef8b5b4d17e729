#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtGlobal>

/// The process that a session's lock file names.
struct LockHolder
{
    qint64 process = 0;   ///< 0: none is named.
    QString program = {}; ///< Of the process, by its full name.
    QString host = {};    ///< On which it runs.
    bool isOnThisHost = false;
};

/// What the file is to say of this process.
[[nodiscard]] QByteArray ThisHolder();

[[nodiscard]] LockHolder ReadHolder(QFile &file);

/// Whether the process may be a copy of this program, with or without a window, that runs: one on
/// another host, or of a user whose processes are not shown, may be.
[[nodiscard]] bool MayBeRunning(const LockHolder &holder);

/// Whether the process that has the number runs the program of that name, as far as can be seen. A
/// holder that has not written its own name yet finds another's in the file.
[[nodiscard]] bool IsNamedRightly(const LockHolder &holder);

/// The holder in words for the user.
[[nodiscard]] QString HeldByText(const LockHolder &holder);

/// Whether the holder is a program without a window.
[[nodiscard]] bool IsService(const LockHolder &holder);

/// Whether SIGUSR1 can be sent to the process: it is a copy of this program, and far enough in its
/// start not to be ended by it.
[[nodiscard]] bool CanBeCalled(const LockHolder &holder);
