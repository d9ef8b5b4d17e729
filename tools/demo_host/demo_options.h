#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

/// The demo host's command line.
struct DemoOptions
{
    bool help = false;
    int port = 0; ///< 1..65535; 0: the system picks one.
    std::optional<QDateTime> time =
        {}; ///< UTC, at which the clock is stopped; otherwise the clock runs.
};

/// Reads the arguments, without the program's name.
/// @return nothing, with one line in `problem`, if they are not understood.
[[nodiscard]] std::optional<DemoOptions> ReadDemoOptions(const QStringList &arguments,
                                                         QString &problem);

/// The text that --help prints.
[[nodiscard]] QString DemoHelp();
