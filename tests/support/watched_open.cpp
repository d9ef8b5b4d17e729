#include "support/watched_open.h"

#include <dlfcn.h>
#include <fcntl.h>

#include <cstdarg>
#include <utility>

namespace {

WatchedOpen::Watcher watcher; // NOLINT(readability-identifier-naming): no constant

/// Tells the watcher, who may make files himself without hearing of those.
void Tell(const char *path, mode_t mode)
{
    if (!watcher)
        return;
    const auto told = std::exchange(watcher, nullptr);
    told(path, mode);
    watcher = told;
}

} // namespace

WatchedOpen::WatchedOpen(Watcher newWatcher)
{
    watcher = std::move(newWatcher);
}

WatchedOpen::~WatchedOpen()
{
    watcher = nullptr;
}

extern "C" int open(const char *path, int flags, ...) // NOLINT(readability-identifier-naming)
{
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
        Tell(path, mode);
    }
    using Function = int (*)(const char *, int, ...);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "open"));
    return next(path, flags, mode);
}
