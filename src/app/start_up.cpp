#include "app/start_up.h"

#include "core/trace.h"
#include "core/version.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kSessionSwitch = u"/SESSION=";
constexpr QStringView kCodePageSwitch = u"/CODEPAGE=1252";
constexpr QStringView kSessions = u"23456789";

QString VersionNumber()
{
    return u"%1.%2.%3"_s.arg(version::kMajor).arg(version::kMinor).arg(version::kRevision);
}

qsizetype SwitchPosition(const QString &command)
{
    return command.indexOf(kSessionSwitch, 0, Qt::CaseInsensitive);
}

/// What stands behind the session switch; empty when nothing does. The digit counts only as the
/// last character of the command text: with anything behind it no session is read.
std::optional<QString> SessionDigit(const QString &command)
{
    const qsizetype found = SwitchPosition(command);
    const qsizetype digitAt = found + kSessionSwitch.size();
    if (found < 0 || digitAt + 1 < command.size())
        return std::nullopt;
    return command.mid(digitAt, 1);
}

bool IsSession(const QString &digit)
{
    return !digit.isEmpty() && kSessions.contains(digit);
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

} // namespace

QString CommandText(int argc, const char *const *argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments.join(u' ');
}

std::optional<QString> ConsoleAnswer(const QString &command)
{
    const QStringList arguments = command.split(u' ');
    if (arguments.contains("--help"_L1))
        return HelpText();
    if (arguments.contains("--version"_L1))
        return u"TavrinWeatherUtility "_s + VersionNumber() + u'\n';
    return std::nullopt;
}

void PreferX11()
{
    const auto isSet = [](const char *name) { return !qEnvironmentVariableIsEmpty(name); };
    if (!isSet("QT_QPA_PLATFORM") && isSet("WAYLAND_DISPLAY") && isSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

void PaintThroughConnection()
{
    qputenv("QT_XCB_NO_MITSHM", "1");
}

QString SessionFromCommand(const QString &command)
{
    Trace(u"Command:", command);
    Trace(SwitchPosition(command) + 1, u"position of \"/SESSION=\"");
    Trace(u"len(command) = ", command.size());

    const std::optional<QString> digit = SessionDigit(command);
    if (!digit)
        return {};
    Trace(u"Mid$(Command, startPos + 9, 1) = ", *digit);
    if (!IsSession(*digit))
        Trace(u"Unrecognised Session ID:", *digit);
    return SessionOf(command);
}

QString SessionOf(const QString &command)
{
    const QString digit = SessionDigit(command).value_or(QString());
    return IsSession(digit) ? digit : QString();
}

CodePage CodePageFromCommand(QStringView command)
{
    const qsizetype session = command.indexOf(kSessionSwitch, 0, Qt::CaseInsensitive);
    qsizetype found = command.indexOf(kCodePageSwitch, 0, Qt::CaseInsensitive);
    while (found >= 0 && (session < 0 || found < session)) {
        const QStringView behind = command.sliced(found + kCodePageSwitch.size());
        if (behind.isEmpty() || behind.startsWith(u' '))
            return CodePage::Windows1252;
        found = command.indexOf(kCodePageSwitch, found + 1, Qt::CaseInsensitive);
    }
    return CodePage::Utf8;
}

QString WindowCaption(const QString &sessionId)
{
    const QString name = u"Tavrin Weather Utility"_s;
    return sessionId.isEmpty() ? name : name + u" - Session "_s + sessionId;
}

QString VersionText(int year)
{
    return u"Version "_s + VersionNumber() + u" - (c) "_s + QString::number(year)
         + u" Tavrin Weather Utility"_s;
}
