#include "app/session_lock.h"

#include "core/trace.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#ifdef Q_OS_UNIX
#include <sys/file.h>
#include <sys/stat.h>

#include <csignal>
#endif

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_UNIX

/// Takes the file away if no process holds it, which the system knows for certain; the number in it
/// may long be another process's. For that the file need not be our own.
/// @return true when it is gone.
bool RemoveAbandoned(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || ::flock(file.handle(), LOCK_EX | LOCK_NB) != 0)
        return false;
    // Another start may have been quicker: then the name is that of its new file.
    struct stat opened = {};
    struct stat named = {};
    const bool same = ::fstat(file.handle(), &opened) == 0
                   && ::stat(QFile::encodeName(path).constData(), &named) == 0
                   && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
    return same && QFile::remove(path);
}

QByteArray ProcessName(const QString &process)
{
    QFile file(u"/proc/%1/comm"_s.arg(process));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool IsOneOfOurs(qint64 process)
{
    const QByteArray name = ProcessName(QString::number(process));
    return !name.isEmpty() && name == ProcessName(u"self"_s);
}

void Call(qint64 process)
{
    if (IsOneOfOurs(process) && ::kill(pid_t(process), SIGUSR1) != 0)
        Trace(u"Unable to call process ", process);
}

#else

bool RemoveAbandoned(const QString & /*path*/)
{
    return false; // the system itself takes the file away with the process
}

void Call(qint64 /*process*/) {}

#endif

} // namespace

SessionLock::SessionLock(const QString &path) : m_path(path), m_file(path)
{
    m_file.setStaleLockTime(0); // a copy runs for years
}

SessionLock::Outcome SessionLock::Take()
{
    if (m_file.tryLock() || (RemoveAbandoned(m_path) && m_file.tryLock()))
        return Outcome::Taken;
    const bool held = m_file.error() == QLockFile::LockFailedError && QFileInfo(m_path).isFile();
    return held ? Outcome::Held : Outcome::NotPossible;
}

void SessionLock::CallHolder() const
{
    qint64 process = 0;
    QString host;
    QString program;
    if (m_file.getLockInfo(&process, &host, &program) && host == QSysInfo::machineHostName())
        Call(process);
}
