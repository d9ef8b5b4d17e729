#include "store/write_error.h"

#include <cerrno>

WriteError::Kind WriteErrorKind(int number)
{
    switch (number) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return WriteError::Kind::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
        return WriteError::Kind::NoRight;
    case EISDIR:
    case ELOOP:
        return WriteError::Kind::NotAFile;
    case ENOENT:
    case ENOTDIR: // a file in the place of the folder
#ifdef ESTALE
    case ESTALE:
#endif
        return WriteError::Kind::Gone;
    default:
        return WriteError::Kind::Other;
    }
}
