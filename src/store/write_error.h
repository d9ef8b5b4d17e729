#pragma once

#include <QString>

/// Why a file could not be stored; nothing when it was.
struct WriteError
{
    enum class Kind
    {
        None,       ///< Stored.
        DiskFull,   ///< The disk is full, or what the user may fill of it.
        NoRight,    ///< The user, or a file system that is read-only, does not let the program.
        NotAFile,   ///< A folder, pipe, socket or device is in its place, or links in a circle.
        Gone,       ///< The folder is not there, a share that went away included.
        Unreadable, ///< The file is there, but could not be read just now.
        Other,
    };

    Kind kind = Kind::None;
    QString text = {}; ///< What went wrong, in the words of the trace; empty when nothing did.

    [[nodiscard]] bool IsError() const { return kind != Kind::None; }
    [[nodiscard]] bool operator==(const WriteError &) const = default;
};

/// The kind of what the system reports by the error number `number` (errno), which is not 0.
[[nodiscard]] WriteError::Kind WriteErrorKind(int number);
