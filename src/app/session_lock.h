#pragma once

#include <QLockFile>
#include <QString>

/// Keeps two copies of one session from running side by side: they would write the same files.
///
/// The lock is a file that names its holder's process. It counts only while that process lives: a
/// file that a killed copy left behind, whoever's it was, is taken away.
class SessionLock
{
public:
    enum class Outcome
    {
        Taken,      ///< Held until this object ends.
        Held,       ///< Another copy has it.
        NotPossible ///< There is no lock to be had, as in a folder that cannot be written.
    };

    explicit SessionLock(const QString &path);

    [[nodiscard]] QString Path() const { return m_path; }

    [[nodiscard]] Outcome Take();

    /// Asks the copy that holds the lock to show its window. Without effect on another user's copy,
    /// and when there is doubt that the process is one.
    void CallHolder() const;

private:
    QString m_path;
    QLockFile m_file;
};
