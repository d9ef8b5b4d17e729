#include "start/command_line.h"

#include "core/trace.h"
#include "core/version.h"

#include <QStringView>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kSessionSwitch = u"/SESSION=";
constexpr QStringView kCodePageSwitch = u"/CODEPAGE=1252";
constexpr QStringView kDesktopSessionOption = u"-session";
constexpr QStringView kSessions = u"23456789";

/// What follows the session switch; empty if nothing does. The digit counts only as the last
/// character of the text: with anything after it no session is read.
std::optional<QString> SessionDigit(const QString &text, qsizetype switchAt)
{
    const qsizetype digitAt = switchAt + kSessionSwitch.size();
    if (switchAt < 0 || digitAt + 1 < text.size())
        return std::nullopt;
    return text.mid(digitAt, 1);
}

bool IsSession(const QString &digit)
{
    return !digit.isEmpty() && kSessions.contains(digit);
}

/// The code page that the text before the session switch asks for.
CodePage CodePageOf(QStringView text, qsizetype sessionSwitchAt)
{
    qsizetype found = text.indexOf(kCodePageSwitch, 0, Qt::CaseInsensitive);
    while (found >= 0 && (sessionSwitchAt < 0 || found < sessionSwitchAt)) {
        const QStringView rest = text.sliced(found + kCodePageSwitch.size());
        if (rest.isEmpty() || rest.startsWith(u' '))
            return CodePage::Windows1252;
        found = text.indexOf(kCodePageSwitch, found + 1, Qt::CaseInsensitive);
    }
    return CodePage::Utf8;
}

QStringList WithoutDesktopSession(QStringList arguments)
{
    for (qsizetype i = arguments.size() - 2; i >= 0; --i) { // the last one has no number after it
        if (arguments[i] == kDesktopSessionOption || arguments[i] == "--session"_L1)
            arguments.remove(i, 2);
    }
    return arguments;
}

QString HelpText()
{
    return u"Usage: TavrinWeatherUtility [/CODEPAGE=1252] [/SESSION=n]\n"
           "Keeps weather and forecast files up to date for a broadcast automation system.\n"
           "\n"
           "  /SESSION=n       run as session n (2 to 9) with files of its own; must come last\n"
           "  /CODEPAGE=1252   read and write INI files in Windows-1252 instead of UTF-8\n"
           "  --help           show this text and end\n"
           "  --version        show the version and end\n"
           "\n"
           "Environment:\n"
           "  TAVRIN_WEATHER_FOLDER   folder of the program's files, else the executable's\n"
           "  TAVRIN_TRACE            1: trace lines go to stderr; a file name: they go there\n"
           "  TAVRIN_CONTACT          contact that is sent to the weather services\n"
           "  TAVRIN_WEATHER_NAMES    1: controls carry their name as accessible description\n"_s;
}

QString ServiceHelpText()
{
    return u"Usage: TavrinWeatherService [--once | --check] [/CODEPAGE=1252] [/SESSION=n]\n"
           "Does without a window what TavrinWeatherUtility does, with the same files, and\n"
           "never changes their settings.\n"
           "\n"
           "  --once           ask once for each product that is set up, then end\n"
           "  --check          say what is set up and what is missing, without a network, and end\n"
           "  /SESSION=n       run as session n (2 to 9) with files of its own; must come last\n"
           "  /CODEPAGE=1252   read and write INI files in Windows-1252 instead of UTF-8\n"
           "  --help           show this text and end\n"
           "  --version        show the version and end\n"
           "\n"
           "Signals:\n"
           "  SIGTERM, SIGINT   end it\n"
           "  SIGHUP            reads the profiles and settings anew\n"
           "\n"
           "Exit code:\n"
           "  0    ended by a signal; --once: all was stored; --check: something is set up\n"
           "  1    --once: some of it was stored\n"
           "  2    --once: nothing was stored\n"
           "  3    --once, --check: nothing is set up; always: the settings cannot be used\n"
           "  4    another copy holds the session\n"
           "  64   there is no such option\n"
           "\n"
           "Environment:\n"
           "  TAVRIN_WEATHER_FOLDER   folder of the program's files, else the executable's\n"
           "  TAVRIN_TRACE            1: trace lines go to stderr; a file name: they go there\n"
           "  TAVRIN_CONTACT          contact that is sent to the weather services\n"_s;
}

/// The answer of either program.
std::optional<QString> AnswerOf(const QString &program, const CommandLine &command,
                                QString (*helpText)())
{
    const QStringList given = command.text.split(u' ');
    if (given.contains("--help"_L1))
        return helpText();
    if (given.contains("--version"_L1))
        return program + u' ' + QLatin1StringView(version::kText) + u'\n';
    return std::nullopt;
}

} // namespace

QStringList ArgumentsOf(int argc, const char *const *argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

CommandLine ReadCommandLine(const QStringList &arguments)
{
    CommandLine command{.arguments = WithoutDesktopSession(arguments)};
    command.text = command.arguments.join(u' ');
    command.sessionSwitchAt = command.text.indexOf(kSessionSwitch, 0, Qt::CaseInsensitive);
    command.sessionDigit = SessionDigit(command.text, command.sessionSwitchAt);
    if (command.sessionDigit && IsSession(*command.sessionDigit))
        command.sessionId = *command.sessionDigit;
    command.codePage = CodePageOf(command.text, command.sessionSwitchAt);
    return command;
}

QStringList RestartCommand(const QString &program, const QString &session,
                           const QStringList &arguments)
{
    return QStringList{program, kDesktopSessionOption.toString(), session} + arguments;
}

void TraceSession(const CommandLine &command)
{
    Trace(u"Command:", command.text);
    Trace(command.sessionSwitchAt + 1, u"position of \"/SESSION=\"");
    Trace(u"len(command) = ", command.text.size());
    if (!command.sessionDigit)
        return;
    Trace(u"Mid$(Command, startPos + 9, 1) = ", *command.sessionDigit);
    if (command.sessionId.isEmpty())
        Trace(u"Unrecognised Session ID:", *command.sessionDigit);
}

std::optional<QString> ConsoleAnswer(const CommandLine &command)
{
    return AnswerOf(u"TavrinWeatherUtility"_s, command, HelpText);
}

ServiceCommand ReadServiceCommand(QStringList arguments)
{
    ServiceCommand command;
    command.isOnce = arguments.removeAll(u"--once"_s) > 0;
    command.isCheck = arguments.removeAll(u"--check"_s) > 0;
    command.line = ReadCommandLine(arguments);
    for (const QString &argument : std::as_const(command.line.arguments)) {
        const bool isAnswered = argument == "--help"_L1 || argument == "--version"_L1;
        if (argument.startsWith(u'-') && !isAnswered)
            command.unknown.append(argument);
    }
    return command;
}

std::optional<QString> ConsoleAnswer(const ServiceCommand &command)
{
    return AnswerOf(u"TavrinWeatherService"_s, command.line, ServiceHelpText);
}
