#include "app/session_lock.h"

#include "core/trace.h"

#include <QCoreApplication>
#include <QSysInfo>

#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#else
#include <QFileInfo>
#endif

using namespace Qt::StringLiterals;

#ifdef Q_OS_UNIX

namespace {

/// Opens the file with `options` besides the usual ones. Not through a link, since what somebody
/// has planted would be written then, and nothing but a file.
bool OpenFile(QFile &file, const QByteArray &path, int options, QIODevice::OpenMode mode)
{
    constexpr mode_t kForAll = 0666; // other users' copies look at it too
    const int handle =
        ::open(path.constData(), options | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kForAll);
    if (handle < 0)
        return false;
    struct stat opened = {};
    if (::fstat(handle, &opened) == 0 && S_ISREG(opened.st_mode))
        return file.open(handle, mode | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    ::close(handle);
    return false;
}

/// Opens the lock's file, and makes it where there is none; another user's as far as that can be.
bool OpenLock(QFile &file, const QByteArray &path)
{
    return OpenFile(file, path, O_RDWR | O_CREAT, QIODevice::ReadWrite)
        || OpenFile(file, path, O_RDONLY, QIODevice::ReadOnly);
}

bool IsPlainFile(const QByteArray &path)
{
    struct stat named = {};
    return ::lstat(path.constData(), &named) == 0 && S_ISREG(named.st_mode);
}

/// Whether `path` still names the open file: not when its holder has taken it away meanwhile, and
/// another copy made its own.
bool IsNamed(const QFile &file, const QByteArray &path)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file.handle(), &opened) == 0 && ::lstat(path.constData(), &named) == 0
        && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

/// What a second start wants to know of the one that holds the lock.
QByteArray ThisHolder()
{
    return QByteArray::number(QCoreApplication::applicationPid()) + '\n'
         + QCoreApplication::applicationName().toUtf8() + '\n'
         + QSysInfo::machineHostName().toUtf8() + '\n';
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

} // namespace

SessionLock::SessionLock(QString path) : m_path(std::move(path)) {}

SessionLock::~SessionLock()
{
    const QByteArray path = QFile::encodeName(m_path);
    // Taken away while it is held: without that it could be another copy's by now.
    if (m_file.isOpen() && IsNamed(m_file, path))
        ::unlink(path.constData());
}

SessionLock::Outcome SessionLock::Take()
{
    constexpr int kRounds = 100; // a second one only if another copy ended just now
    const QByteArray path = QFile::encodeName(m_path);
    for (int i = 0; i < kRounds; ++i) {
        if (!OpenLock(m_file, path))
            return IsPlainFile(path) ? Outcome::Held : Outcome::NotPossible;
        if (::flock(m_file.handle(), LOCK_EX | LOCK_NB) != 0) {
            const bool isHeld = errno == EWOULDBLOCK;
            m_file.close();
            return isHeld ? Outcome::Held : Outcome::NotPossible;
        }
        if (IsNamed(m_file, path) && WriteHolder(path))
            return Outcome::Taken;
        m_file.close();
    }
    return Outcome::NotPossible; // a file system without lasting numbers of files
}

/// Writes this process into the file that is locked.
/// @return false when it could only be taken away, so that a new one has to be made.
bool SessionLock::WriteHolder(const QByteArray &path)
{
    if (!m_file.isWritable())
        return ::unlink(path.constData()) != 0;
    // On a full disk the lock counts all the same.
    if (!m_file.resize(0) || m_file.write(ThisHolder()) < 0)
        Trace(u"Unable to write ", m_path);
    return true;
}

void SessionLock::CallHolder() const
{
    constexpr qint64 kMost = 4096; // of what may stand there
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArrayList holder = file.read(kMost).split('\n');
    const qint64 process = holder.constFirst().toLongLong();
    if (holder.value(2) != QSysInfo::machineHostName().toUtf8() || !IsOneOfOurs(process))
        return;
    if (::kill(pid_t(process), SIGUSR1) != 0)
        Trace(u"Unable to call process ", process);
}

#else

SessionLock::SessionLock(QString path) : m_path(std::move(path)), m_file(m_path)
{
    m_file.setStaleLockTime(0); // a copy runs for years
}

SessionLock::~SessionLock() = default;

SessionLock::Outcome SessionLock::Take()
{
    if (m_file.tryLock())
        return Outcome::Taken;
    const bool isHeld = m_file.error() == QLockFile::LockFailedError && QFileInfo(m_path).isFile();
    return isHeld ? Outcome::Held : Outcome::NotPossible;
}

void SessionLock::CallHolder() const {}

#endif
