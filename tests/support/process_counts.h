#pragma once

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// What this process holds at the moment, as the system counts it. The threads that the toolkit
// paints with are left out, because they come and go on their own, each with one file descriptor.

inline bool IsPaintingThread(const std::filesystem::directory_entry &task)
{
    std::ifstream comm(task.path() / "comm");
    std::string name;
    std::getline(comm, name);
    return name == "Thread (pooled)";
}

inline long PaintingThreads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::count_if(begin(tasks), end(tasks), IsPaintingThread);
}

inline long RunningThreads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks)) - PaintingThreads();
}

inline long OpenDescriptors()
{
    const std::filesystem::directory_iterator descriptors("/proc/self/fd"); // takes one itself
    return std::distance(begin(descriptors), end(descriptors)) - 1 - PaintingThreads();
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

/// What the calling thread has used of a processor so far, in milliseconds.
inline double ProcessorTime()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    constexpr double kPerSecond = 1e3;
    constexpr double kPerNanosecond = 1e-6;
    return double(time.tv_sec) * kPerSecond + double(time.tv_nsec) * kPerNanosecond;
}
