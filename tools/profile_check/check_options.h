#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <optional>

/// How the check prints what a profile makes of a reply.
enum class CheckFormat
{
    Table, ///< For people.
    Ini    ///< One section for each reply.
};

/// What the profile check is told on its command line.
struct CheckOptions
{
    bool help = false;
    QString profileFile = {}; ///< Empty: the one that the program itself would read.
    std::size_t profile = 0;  ///< 0..9.
    std::array<QString, 4> location = {};
    QString port = QStringLiteral("80"); ///< A whole number from 1 to 65535.
    QStringList replies = {};            ///< Files with a reply each, as given.
    bool fetch = false;                  ///< Ask the service instead of reading files.
    CheckFormat format = CheckFormat::Table;
    bool trace = false;
};

/// Reads the arguments, the program's name not among them. Exactly one of "--reply" and "--fetch"
/// is wanted, unless help is.
/// @return nothing, with one line in `problem`, when they are not understood.
[[nodiscard]] std::optional<CheckOptions> ReadCheckOptions(const QStringList &arguments,
                                                           QString &problem);

/// What --help prints.
[[nodiscard]] QString CheckHelp();
