#include "support/watched_open.h"

#include <dlfcn.h>
#include <fcntl.h>

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

/// What the program calls as open(). The mode is there only with O_CREAT; without it the value is
/// not looked at, here and there.
extern "C" int OpenInFront(const char *path, int flags, mode_t mode) __asm__("open");

extern "C" int OpenInFront(const char *path, int flags, mode_t mode)
{
    if ((flags & O_CREAT) != 0)
        Tell(path, mode);
    using Function = int (*)(const char *, int, ...);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "open"));
    return next(path, flags, mode);
}
