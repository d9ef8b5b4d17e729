#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// What this process holds at the moment, as the system counts it.

/// Entries of a folder under /proc/self. Looking takes a file descriptor, which is not counted.
inline long CountOwn(const std::string &folder)
{
    const std::filesystem::directory_iterator entries("/proc/self/" + folder);
    return std::distance(begin(entries), end(entries));
}

inline long OpenDescriptors()
{
    return CountOwn("fd") - 1;
}

inline long RunningThreads()
{
    return CountOwn("task");
}

/// Memory that belongs to this process alone and is in use now, in KiB.
inline long PrivateMemory()
{
    std::ifstream smaps("/proc/self/smaps_rollup");
    std::string word;
    while (smaps >> word && word != "Anonymous:") {
    }
    long kibibytes = 0;
    smaps >> kibibytes;
    return kibibytes;
}
