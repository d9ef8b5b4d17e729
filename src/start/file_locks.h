#pragma once

/// How an attempt to lock a file ended. None of them waits.
enum class Locking
{
    Done,
    Refused,    ///< Somebody holds a lock that conflicts.
    NotPossible ///< The system or the file system has no such locks.
};

/// Locks the open file against everybody else who locks it in this way. The right to read the file
/// is enough.
[[nodiscard]] Locking LockWhole(int handle);

/// Locks the open file against everybody else who locks it in this way, even for reading. The
/// handle must be open for writing.
[[nodiscard]] Locking LockForWriting(int handle);

/// Whether somebody else has locked the file for writing. Any handle will do.
[[nodiscard]] bool HasWriter(int handle);
