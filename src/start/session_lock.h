#pragma once

#include "start/lock_holder.h"

#include <QString>
#include <QtGlobal>

#include <optional>

#ifdef Q_OS_UNIX
#include <QFile>
#else
#include <QLockFile>
#endif

/// Keeps two copies of one session from running side by side: they would write the same files.
///
/// The lock is a file that names its holder's process, and counts only while that process lives: a
/// file that a killed copy has left, whoever's it was, is taken over. Somebody who can only read
/// the file cannot keep the lock from a copy that can write it.
class SessionLock
{
public:
    enum class Outcome
    {
        Taken,      ///< Held until this object ends.
        Held,       ///< Another copy has it.
        NotPossible ///< No lock can be had, in a folder that cannot be written for example.
    };

    explicit SessionLock(QString path);
    ~SessionLock();
    Q_DISABLE_COPY_MOVE(SessionLock)

    [[nodiscard]] QString Path() const { return m_path; }

    /// Call it once.
    [[nodiscard]] Outcome Take();

    /// The copy that held the lock when Take() tried; nothing if it is unknown.
    [[nodiscard]] std::optional<LockHolder> Holder() const;

    /// Asks the copy that holds the lock to show its window. Does nothing if it is another user's,
    /// or if the process may be no copy at all.
    void CallHolder() const;

private:
    QString m_path;
#ifdef Q_OS_UNIX
    [[nodiscard]] bool WriteHolder(const QByteArray &path);

    QFile m_file;                 ///< Open while the lock is held.
    bool m_isHeldByOther = false; ///< Take() found it so.
#else
    QLockFile m_file;
#endif
};
