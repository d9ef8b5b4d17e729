#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <optional>

/// How the check prints what a profile extracts from a reply.
enum class CheckFormat
{
    Table, ///< For people.
    Ini    ///< One section per reply.
};

/// The profile check's command line.
struct CheckOptions
{
    bool help = false;
    QString profileFile = {}; ///< Empty: the one that the program itself would read.
    std::size_t profile = 0;  ///< 0..9.
    std::array<QString, 4> location = {};
    QString port = QStringLiteral("80"); ///< A whole number from 1 to 65535.
    QStringList replies = {};            ///< Files with one reply each, as given.
    bool fetch = false;                  ///< Ask the service instead of reading files.
    CheckFormat format = CheckFormat::Table;
    bool trace = false;
};

/// Reads the arguments, without the program's name. Exactly one of "--reply" and "--fetch" is
/// required, unless help is requested.
/// @return nothing, with one line in `problem`, if they are not understood.
[[nodiscard]] std::optional<CheckOptions> ReadCheckOptions(const QStringList &arguments,
                                                           QString &problem);

/// The text that --help prints.
[[nodiscard]] QString CheckHelp();
