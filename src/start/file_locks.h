#pragma once

/// How a try to lock a file ended. None of them waits.
enum class Locking
{
    Done,
    Refused,    ///< Somebody has a lock that is in the way.
    NotPossible ///< The system or the file system has no such locks.
};

/// Locks the open file against all others who lock it in this way. Whoever can read the file can do
/// so.
[[nodiscard]] Locking LockWhole(int handle);

/// Locks the open file against all others who lock it in this way, for reading too. Takes a handle
/// that the file can be written through.
[[nodiscard]] Locking LockForWriting(int handle);

/// Whether somebody else has locked the file for writing. Takes any handle.
[[nodiscard]] bool HasWriter(int handle);
