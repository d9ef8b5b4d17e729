#include "support/failing_write.h"

#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

int failure = 0;      // NOLINT(readability-identifier-naming): no constant
qint64 bytesLeft = 0; // NOLINT(readability-identifier-naming): no constant

} // namespace

FailingWrite::FailingWrite(int number, qint64 bytes)
{
    failure = number;
    bytesLeft = bytes;
}

FailingWrite::~FailingWrite()
{
    failure = 0;
}

/// What the program and its libraries call as write().
extern "C" ssize_t WriteInFront(int handle, const void *bytes, size_t size) __asm__("write");

extern "C" ssize_t WriteInFront(int handle, const void *bytes, size_t size)
{
    using Function = ssize_t (*)(int, const void *, size_t);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "write"));
    if (failure == 0 || handle <= STDERR_FILENO)
        return next(handle, bytes, size);
    if (bytesLeft == 0) {
        errno = failure;
        return -1;
    }
    const ssize_t written = next(handle, bytes, std::min(size, size_t(bytesLeft)));
    bytesLeft -= std::max(written, ssize_t(0));
    return written;
}
