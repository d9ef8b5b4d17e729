#pragma once

#include "store/private_profile.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the program was started with, read once.
struct CommandLine
{
    /// All but the program's own path and what a session manager adds, which is the toolkit's:
    /// "-session" and its number for the program.
    QStringList arguments = {};
    QString text = {}; ///< The arguments joined by single blanks.

    qsizetype sessionSwitchAt = -1; ///< Where "/SESSION=" begins in the text; -1: nowhere.

    /// What follows the switch, if that ends the text: one character, or none.
    std::optional<QString> sessionDigit = {};

    /// "2".."9" if the text ends with "/SESSION=" and that digit (letter case is ignored), "" for
    /// the default session.
    QString sessionId = {};

    /// Windows-1252 if "/CODEPAGE=1252", followed by a blank or the end of the text, comes before
    /// "/SESSION=", or anywhere if there is no session switch; letter case is ignored.
    CodePage codePage = CodePage::Utf8;
};

/// The arguments of main() after the program's name.
[[nodiscard]] QStringList ArgumentsOf(int argc, const char *const *argv);

[[nodiscard]] CommandLine ReadCommandLine(const QStringList &arguments);

/// The command that starts the program again in the next session of the desktop: `program`, the
/// session manager's number for it, and all other arguments. These come last because the program
/// reads its own session only from the very end.
[[nodiscard]] QStringList RestartCommand(const QString &program, const QString &session,
                                         const QStringList &arguments);

/// Traces how the session was found.
void TraceSession(const CommandLine &command);

/// What the program prints before it ends, without needing a display, if one of the arguments is
/// "--help" or "--version".
[[nodiscard]] std::optional<QString> ConsoleAnswer(const CommandLine &command);

/// What the program without a window was started with.
struct ServiceCommand
{
    /// The rest, read as by the other program. "--once" may follow the session switch.
    CommandLine line = {};
    bool isOnce = false;
    bool isCheck = false;     ///< Takes precedence over isOnce.
    QStringList unknown = {}; ///< Options that do not exist.
};

[[nodiscard]] ServiceCommand ReadServiceCommand(QStringList arguments);

/// As for the other program.
[[nodiscard]] std::optional<QString> ConsoleAnswer(const ServiceCommand &command);
