#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtGlobal>

/// The process that a session's lock file names.
struct LockHolder
{
    qint64 process = 0;   ///< 0: none is named.
    QString program = {}; ///< Its full name.
    QString host = {};    ///< The one it runs on.
    bool isOnThisHost = false;
};

/// What this process writes into the file.
[[nodiscard]] QByteArray ThisHolder();

[[nodiscard]] LockHolder ReadHolder(QFile &file);

/// Whether the process may be a running copy of this program, with or without a window. One on
/// another host may be, and so may one of a user whose processes are hidden.
[[nodiscard]] bool MayBeRunning(const LockHolder &holder);

/// Whether the process with that number runs the program of that name, as far as can be seen. Until
/// a holder has written its own name, the file has another's.
[[nodiscard]] bool IsNamedRightly(const LockHolder &holder);

/// The holder in words for the user.
[[nodiscard]] QString HeldByText(const LockHolder &holder);

/// Whether the holder is the program without a window.
[[nodiscard]] bool IsService(const LockHolder &holder);

/// Whether SIGUSR1 can be sent to the process: it is a copy of this program, and far enough into
/// its start to survive it.
[[nodiscard]] bool CanBeCalled(const LockHolder &holder);
