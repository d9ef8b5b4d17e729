#include "start/session_lock.h"

#include "core/trace.h"
#include "start/file_locks.h"
#include "start/lock_holder.h"

#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#else
#include <QFileInfo>
#include <QSysInfo>
#endif

using namespace Qt::StringLiterals;

#ifdef Q_OS_UNIX

namespace {

/// Opens the file with `options` besides the usual ones. Follows no link, because somebody might
/// have planted it to have its target overwritten, and opens only plain files.
bool OpenFile(QFile &file, const QByteArray &path, int options, QIODevice::OpenMode mode)
{
    constexpr mode_t kForAll = 0666; // other users' copies read it, too
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

/// Opens the lock's file, and creates it if there is none; read-only if another user's allows no
/// more.
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

/// Whether `path` still names the open file. It does not if the holder has removed the file
/// meanwhile, or if another copy has created its own.
bool IsNamed(const QFile &file, const QByteArray &path)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file.handle(), &opened) == 0 && ::lstat(path.constData(), &named) == 0
        && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

enum class Grip
{
    Ours,
    Others,
    Disputed,   // blocked by somebody who need not be a copy of the program
    NotPossible // there are no locks
};

/// Locks the open file in both ways.
Grip Grasp(QFile &file)
{
    const int handle = file.handle();
    const Locking writing = file.isWritable() ? LockForWriting(handle) : Locking::NotPossible;
    const auto isOthers = [&] { return writing != Locking::Done && HasWriter(handle); };
    if (isOthers()) // before the second lock could hinder a copy that is about to take it
        return Grip::Others;
    const Locking whole = LockWhole(handle);
    if (isOthers()) // they may have got it a moment ago
        return Grip::Others;
    if (whole == Locking::Refused
        && (writing == Locking::NotPossible || MayBeRunning(ReadHolder(file))))
        return Grip::Others;
    if (whole == Locking::Refused || writing == Locking::Refused)
        return Grip::Disputed;
    return whole == Locking::Done || writing == Locking::Done ? Grip::Ours : Grip::NotPossible;
}

} // namespace

SessionLock::SessionLock(QString path) : m_path(std::move(path)) {}

SessionLock::~SessionLock()
{
    const QByteArray path = QFile::encodeName(m_path);
    // Removed while the lock is held: afterwards it could be another copy's.
    if (m_file.isOpen() && IsNamed(m_file, path))
        ::unlink(path.constData());
}

SessionLock::Outcome SessionLock::Take()
{
    // One is enough, unless another copy is just starting or ending or somebody is in the way.
    constexpr int kRounds = 100;
    const QByteArray path = QFile::encodeName(m_path);
    for (int left = kRounds; left > 0; --left) {
        if (!OpenLock(m_file, path))
            return IsPlainFile(path) ? Outcome::Held : Outcome::NotPossible;
        const Grip grip = Grasp(m_file);
        m_isHeldByOther = grip == Grip::Others;
        // Somebody who can only read the file does not keep the program from its work.
        const bool isOurs = grip == Grip::Ours || (grip == Grip::Disputed && left == 1);
        if (isOurs && IsNamed(m_file, path) && WriteHolder(path))
            return Outcome::Taken;
        m_file.close();
        if (m_isHeldByOther || grip == Grip::NotPossible)
            return m_isHeldByOther ? Outcome::Held : Outcome::NotPossible;
    }
    return Outcome::NotPossible; // a file system without stable inode numbers
}

/// Writes this process into the locked file.
/// @return false if the file could only be removed, so that a new one must be created.
bool SessionLock::WriteHolder(const QByteArray &path)
{
    if (!m_file.isWritable())
        return ::unlink(path.constData()) != 0;
    // The lock counts even if the disk is full.
    if (!m_file.resize(0) || m_file.write(ThisHolder()) < 0)
        Trace(u"Unable to write ", m_path);
    return true;
}

std::optional<LockHolder> SessionLock::Holder() const
{
    QFile file(m_path);
    if (!m_isHeldByOther || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    LockHolder holder = ReadHolder(file);
    return IsNamedRightly(holder) ? std::optional(std::move(holder)) : std::nullopt;
}

void SessionLock::CallHolder() const
{
    QFile file(m_path);
    if (!m_isHeldByOther || !file.open(QIODevice::ReadOnly))
        return;
    const LockHolder holder = ReadHolder(file);
    if (CanBeCalled(holder) && ::kill(pid_t(holder.process), SIGUSR1) != 0)
        Trace(u"Unable to call process ", holder.process);
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

std::optional<LockHolder> SessionLock::Holder() const
{
    LockHolder holder;
    if (!m_file.getLockInfo(&holder.process, &holder.host, &holder.program))
        return std::nullopt;
    holder.isOnThisHost = holder.host == QSysInfo::machineHostName();
    return holder;
}

void SessionLock::CallHolder() const {}

#endif
