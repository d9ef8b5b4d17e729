#include "start/lock_holder.h"

#include <QByteArrayList>
#include <QCoreApplication>
#include <QSysInfo>
#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <sys/types.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kWindowName("TavrinWeatherUtility");
constexpr QLatin1StringView kServiceName("TavrinWeatherService");

} // namespace

QString HeldByText(const LockHolder &holder)
{
    const QString where = holder.isOnThisHost ? QString() : " on "_L1 + holder.host;
    return u"this session is held by %1 (process %2%3)"_s.arg(
        holder.program, QString::number(holder.process), where);
}

bool IsService(const LockHolder &holder)
{
    return holder.program == kServiceName;
}

#ifdef Q_OS_UNIX

namespace {

QByteArray ReadAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray ProcessName(const QString &process)
{
    QByteArray name = ReadAll(u"/proc/%1/comm"_s.arg(process));
    name.chop(name.endsWith('\n') ? 1 : 0);
    return name;
}

/// As much of a program's name as the system keeps.
QByteArray ShortName(QLatin1StringView program)
{
    constexpr qsizetype kLongest = 15;
    return {program.data(), std::min(kLongest, program.size())};
}

/// The program with a window and the one without share their sessions.
bool IsOneOfOurs(qint64 process)
{
    const QByteArray name = ProcessName(QString::number(process));
    return !name.isEmpty()
        && (name == ShortName(kWindowName) || name == ShortName(kServiceName)
            || name == ProcessName(u"self"_s));
}

bool IsAlive(qint64 process)
{
    return ::kill(pid_t(process), 0) == 0 || errno == EPERM;
}

/// Whether the process ignores or handles the signal. One that has only just started does neither
/// yet, and the signal would end it.
bool IsReadyFor(int number, qint64 process)
{
    constexpr int kHexadecimal = 16;
    const QByteArrayList lines = ReadAll(u"/proc/%1/status"_s.arg(process)).split('\n');
    return std::ranges::any_of(lines, [number](const QByteArray &line) {
        if (!line.startsWith("SigIgn:") && !line.startsWith("SigCgt:"))
            return false;
        const QByteArray digits = line.mid(line.indexOf('\t') + 1);
        return ((digits.toULongLong(nullptr, kHexadecimal) >> (number - 1)) & 1U) != 0;
    });
}

} // namespace

QByteArray ThisHolder()
{
    return QByteArray::number(QCoreApplication::applicationPid()) + '\n'
         + QCoreApplication::applicationName().toUtf8() + '\n'
         + QSysInfo::machineHostName().toUtf8() + '\n';
}

LockHolder ReadHolder(QFile &file)
{
    constexpr qint64 kMost = 4096; // bytes; anything may be in there
    file.seek(0);
    const QByteArrayList lines = file.read(kMost).split('\n');
    return {.process = std::max(lines.constFirst().toLongLong(), 0LL),
            .program = QString::fromUtf8(lines.value(1)),
            .host = QString::fromUtf8(lines.value(2)),
            .isOnThisHost = lines.value(2) == QSysInfo::machineHostName().toUtf8()};
}

bool MayBeRunning(const LockHolder &holder)
{
    if (holder.process == 0)
        return false;
    if (!holder.isOnThisHost)
        return true;
    if (!IsAlive(holder.process))
        return false;
    return IsOneOfOurs(holder.process) || ProcessName(QString::number(holder.process)).isEmpty();
}

bool IsNamedRightly(const LockHolder &holder)
{
    if (holder.process == 0 || holder.program.isEmpty())
        return false;
    if (!holder.isOnThisHost)
        return true;
    const QByteArray name = ProcessName(QString::number(holder.process));
    return name.isEmpty() ? IsAlive(holder.process) : holder.program.toUtf8().startsWith(name);
}

bool CanBeCalled(const LockHolder &holder)
{
    // Until the holder has written its own number, the one in the file may be any process's.
    return holder.process > 0 && holder.isOnThisHost && IsOneOfOurs(holder.process)
        && IsReadyFor(SIGUSR1, holder.process);
}

#endif
