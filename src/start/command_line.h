#pragma once

#include "store/private_profile.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the program was started with, read once.
struct CommandLine
{
    /// As given, but for the program's own path and what a session manager adds ("-session" and its
    /// number of the program), which is the toolkit's.
    QStringList arguments = {};
    QString text = {}; ///< The arguments joined by single blanks.

    qsizetype sessionSwitchAt = -1; ///< Where "/SESSION=" begins in the text; -1: nowhere.

    /// What follows the switch, if that is the end of the text: one character, or none.
    std::optional<QString> sessionDigit = {};

    /// "2".."9" when "/SESSION=" and that digit are the very end of the text (letter case ignored),
    /// "" for the default session.
    QString sessionId = {};

    /// Windows-1252 when "/CODEPAGE=1252" and a blank or the end of the text stand ahead of
    /// "/SESSION=", or anywhere when there is no session switch; letter case is ignored.
    CodePage codePage = CodePage::Utf8;
};

/// The arguments of main() from the first on.
[[nodiscard]] QStringList ArgumentsOf(int argc, const char *const *argv);

[[nodiscard]] CommandLine ReadCommandLine(const QStringList &arguments);

/// The command that starts the program again in the next session of the desktop: `program`, the
/// session manager's number of it, and all other arguments. These come last, as the program's own
/// session is only read from the very end.
[[nodiscard]] QStringList RestartCommand(const QString &program, const QString &session,
                                         const QStringList &arguments);

/// Traces how the session was found.
void TraceSession(const CommandLine &command);

/// What the program prints and ends with, without needing a display, when one of the arguments is
/// "--help" or "--version".
[[nodiscard]] std::optional<QString> ConsoleAnswer(const CommandLine &command);

/// What the program without a window was started with.
struct ServiceCommand
{
    /// The rest, read as the other program does it: "--once" behind the session switch is not in
    /// the way.
    CommandLine line = {};
    bool isOnce = false;
    bool isCheck = false;     ///< Comes before the other.
    QStringList unknown = {}; ///< Options that there are not.
};

[[nodiscard]] ServiceCommand ReadServiceCommand(QStringList arguments);

/// As for the other program.
[[nodiscard]] std::optional<QString> ConsoleAnswer(const ServiceCommand &command);
