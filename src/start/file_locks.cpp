#include "start/file_locks.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

Locking LockWhole(int handle)
{
    if (::flock(handle, LOCK_EX | LOCK_NB) == 0)
        return Locking::Done;
    return errno == EWOULDBLOCK ? Locking::Refused : Locking::NotPossible;
}

#ifdef F_OFD_SETLK

namespace {

struct flock WholeFile(short type)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    return lock;
}

} // namespace

Locking LockForWriting(int handle)
{
    struct flock lock = WholeFile(F_WRLCK);
    if (::fcntl(handle, F_OFD_SETLK, &lock) == 0)
        return Locking::Done;
    return errno == EAGAIN || errno == EACCES ? Locking::Refused : Locking::NotPossible;
}

bool HasWriter(int handle)
{
    struct flock lock = WholeFile(F_RDLCK); // only a lock for writing conflicts with it
    return ::fcntl(handle, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

#else

Locking LockForWriting(int)
{
    return Locking::NotPossible;
}

bool HasWriter(int)
{
    return false;
}

#endif

#endif
