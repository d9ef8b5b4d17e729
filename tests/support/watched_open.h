#pragma once

#include <QtGlobal>

#include <sys/types.h>

#include <functional>

/// While it lives, it hears of every file that this process is about to make with open(), and may
/// be quicker: what it puts there is there first. One at a time.
///
/// It intercepts the C library's open() in the test program.
class WatchedOpen
{
public:
    using Watcher = std::function<void(const char *path, mode_t mode)>;

    explicit WatchedOpen(Watcher watcher);
    ~WatchedOpen();
    Q_DISABLE_COPY_MOVE(WatchedOpen)
};
