#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

/// What the demo host is told on its command line.
struct DemoOptions
{
    bool help = false;
    int port = 0; ///< 1..65535; 0: the system picks one.
    std::optional<QDateTime> time =
        {}; ///< UTC, at which the clock stands still; else the real one.
};

/// Reads the arguments, the program's name not among them.
/// @return nothing, with one line in `problem`, when they are not understood.
[[nodiscard]] std::optional<DemoOptions> ReadDemoOptions(const QStringList &arguments,
                                                         QString &problem);

/// What --help prints.
[[nodiscard]] QString DemoHelp();
