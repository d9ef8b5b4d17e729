#include "store/replaced_file.h"

#include "core/text.h"
#include "core/trace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <optional>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#else
#include <QSaveFile>
#endif

using namespace Qt::StringLiterals;

namespace {

// Between the file's name and the random part, and after it. Nobody names another file like this by
// chance, as they might choose "Weather.ini.backup".
constexpr auto kMarker = ".TavrinWeather-"_L1;
constexpr auto kEnding = ".tmp"_L1;

constexpr int kMostDigits = 16; // of the random part, hexadecimal

constexpr int kMaxLinks = 40; // as many as the system itself follows

/// The file that `path` finally names, so that replacing it leaves symbolic links as they are.
/// Nothing if the links run in a circle.
std::optional<QString> LinkTarget(QString path)
{
    for (int i = 0; i < kMaxLinks; ++i) {
        const QFileInfo info(path);
        if (!info.isSymLink())
            return path;
        path = info.symLinkTarget();
    }
    return std::nullopt;
}

bool WriteAll(QFileDevice &file, const QByteArrayList &pieces)
{
    return std::ranges::all_of(
        pieces, [&file](const QByteArray &piece) { return file.write(piece) == piece.size(); });
}

/// Whether a file of this name is one that was never finished. `start` is the part of the name
/// before the random part.
bool IsUnfinished(QStringView name, QStringView start)
{
    if (!name.startsWith(start) || !name.endsWith(kEnding))
        return false;
    const qsizetype digits = name.size() - start.size() - kEnding.size();
    return digits >= 1 && digits <= kMostDigits
        && std::ranges::all_of(name.sliced(start.size(), digits),
                               [](QChar c) { return IsDigit(c) || (c >= u'a' && c <= u'f'); });
}

#ifdef Q_OS_UNIX

constexpr int kTries = 16; // for an unused name; in practice the first try succeeds

QString TemporaryName(const QString &path)
{
    const quint64 random = QRandomGenerator::system()->generate64();
    return path + kMarker + QString::number(random, 16) + kEnding;
}

/// Creates and opens a new file beside `path`. If it replaces no file, it has the mode and the
/// access list that the umask and the folder give to new files; otherwise only the user can open it
/// until KeepRights(), because whoever opened it earlier could read what is written later.
/// @return its name; empty if none can be created, with the reason in errno.
QString OpenNew(QFile &file, const QString &path)
{
    constexpr mode_t kForAll = 0666;
    constexpr mode_t kForUser = 0600;
    const mode_t mode = QFile::exists(path) ? kForUser : kForAll;
    for (int i = 0; i < kTries; ++i) {
        QString name = TemporaryName(path);
        const int handle = ::open(QFile::encodeName(name).constData(),
                                  O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
        if (handle >= 0 && file.open(handle, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
            return name;
        if (handle >= 0 || errno != EEXIST)
            return {};
    }
    return {};
}

/// Gives the open `file` the access list of the file that it is to replace.
void KeepAccessList(const QFile &file, const char *path)
{
    constexpr const char *kAccessList = "system.posix_acl_access";
    const ssize_t size = ::getxattr(path, kAccessList, nullptr, 0);
    if (size <= 0)
        return; // the mode says it all
    QByteArray list(size, '\0');
    if (::getxattr(path, kAccessList, list.data(), size_t(size)) != size
        || ::fsetxattr(file.handle(), kAccessList, list.constData(), size_t(size), 0) != 0)
        Trace(u"Access list is not kept: ", QFile::decodeName(path));
}

/// Gives the open `file` owner, group, mode and access list of the file that it is to replace, as
/// far as the system lets this user do so.
void KeepRights(const QFile &file, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat old = {};
    if (::stat(name.constData(), &old) != 0)
        return;
    if (::fchown(file.handle(), old.st_uid, old.st_gid) != 0
        && ::fchown(file.handle(), static_cast<uid_t>(-1), old.st_gid) != 0)
        Trace(u"Owner and group are not kept: ", path);
    // Changing the owner may clear bits of the mode, so the mode is set after it.
    if (::fchmod(file.handle(), old.st_mode & 07777) != 0)
        Trace(u"Mode is not kept: ", path);
    KeepAccessList(file, name.constData());
}

/// What `number` (errno) stands for.
WriteError SystemError(int number)
{
    return {WriteErrorKind(number),
            QString::fromStdString(std::generic_category().message(number))};
}

/// Why what is at `path` must not be replaced; no error if it may be, or if there is nothing.
/// Renaming needs no right to the old file, but whoever may not write it must not replace it,
/// either.
WriteError Obstacle(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat old = {};
    if (::stat(name.constData(), &old) != 0)
        return errno == ENOENT ? WriteError() : SystemError(errno);
    if (S_ISDIR(old.st_mode))
        return SystemError(EISDIR);
    if (!S_ISREG(old.st_mode))
        return {WriteError::Kind::NotAFile, u"a pipe, socket or device is in its place"_s};
    // Ask the system: it knows of access lists, file systems and superusers, the mode does not.
    if (::faccessat(AT_FDCWD, name.constData(), W_OK, AT_EACCESS) != 0)
        return SystemError(errno);
    return {};
}

/// Fills the new file `name`, which is open as `file`, and renames it to `path`.
WriteError FillAndRename(QFile &file, const QString &name, const QString &path,
                         const QByteArrayList &pieces)
{
    errno = 0;
    if (!WriteAll(file, pieces) || !file.flush())
        return {WriteErrorKind(errno), file.errorString()};
    if (::fsync(file.handle()) != 0
        || std::rename(QFile::encodeName(name).constData(), QFile::encodeName(path).constData())
               != 0)
        return SystemError(errno);
    return {};
}

/// @param path not a link.
WriteError Replace(const QString &path, const QByteArrayList &pieces)
{
    if (WriteError error = Obstacle(path); error.IsError())
        return error;
    QFile file;
    const QString name = OpenNew(file, path);
    if (name.isEmpty())
        return SystemError(errno);
    KeepRights(file, path);
    WriteError error = FillAndRename(file, name, path, pieces);
    file.close();
    if (error.IsError())
        QFile::remove(name);
    return error;
}

#else

WriteError Replace(const QString &path, const QByteArrayList &pieces)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && WriteAll(file, pieces) && file.commit())
        return {};
    switch (file.error()) {
    case QFileDevice::ResourceError:
        return {WriteError::Kind::DiskFull, file.errorString()};
    case QFileDevice::PermissionsError:
        return {WriteError::Kind::NoRight, file.errorString()};
    default:
        return {WriteError::Kind::Other, file.errorString()};
    }
}

#endif

} // namespace

WriteError ReplaceFile(const QString &path, const QByteArrayList &pieces)
{
    const std::optional<QString> target = LinkTarget(path);
    if (!target)
        return {WriteError::Kind::NotAFile, u"symbolic links run in a circle"_s};
    return Replace(*target, pieces);
}

void RemoveLeftovers(const QString &path)
{
    const QFileInfo info(LinkTarget(path).value_or(path));
    const QString start = info.fileName() + kMarker;
    const QDir folder = info.dir();
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden)) {
        if (IsUnfinished(name, start) && QFile::remove(folder.filePath(name)))
            Trace(u"Unfinished file removed: ", name);
    }
}
