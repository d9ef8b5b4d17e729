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
/// The lock is a file that names its holder's process, and counts only while that process lives:
/// one that a killed copy left behind, whoever's it was, is taken over. Somebody who may only read
/// the file cannot hold the lock against a copy that may write it.
class SessionLock
{
public:
    enum class Outcome
    {
        Taken,      ///< Held until this object ends.
        Held,       ///< Another copy has it.
        NotPossible ///< There is no lock to be had, as in a folder that cannot be written.
    };

    explicit SessionLock(QString path);
    ~SessionLock();
    Q_DISABLE_COPY_MOVE(SessionLock)

    [[nodiscard]] QString Path() const { return m_path; }

    /// To be called once.
    [[nodiscard]] Outcome Take();

    /// The copy that holds the lock, which Take() found held; nothing when it cannot be told.
    [[nodiscard]] std::optional<LockHolder> Holder() const;

    /// Asks the copy that holds the lock to show its window. Without effect on another user's copy,
    /// and when there is doubt that the process is one.
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
