#include "support/watched_open.h"

#include <dlfcn.h>
#include <fcntl.h>

#include <utility>

namespace {

WatchedOpen::Watcher watcher; // NOLINT(readability-identifier-naming): no constant

/// Tells the watcher, which may make files itself without hearing of them.
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

/// What the program calls as open(). The mode is passed only with O_CREAT; without it, nobody reads
/// the value.
extern "C" int OpenInFront(const char *path, int flags, mode_t mode) __asm__("open");

extern "C" int OpenInFront(const char *path, int flags, mode_t mode)
{
    if ((flags & O_CREAT) != 0)
        Tell(path, mode);
    using Function = int (*)(const char *, int, ...);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "open"));
    return next(path, flags, mode);
}
