#include "store/replaced_file.h"

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

// What stands between the file's name and the random part, and behind it: nobody else's file is
// named like this by chance, as "Weather.ini.backup" might be.
constexpr auto kMarker = ".TavrinWeather-"_L1;
constexpr auto kEnding = ".tmp"_L1;

constexpr int kMostDigits = 16; // of the random part, hexadecimal

constexpr int kMaxLinks = 40; // as many as the system itself follows

/// The file that `path` finally names, so that replacing it leaves symbolic links as they are.
/// Nothing when the links run in a circle.
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

/// Whether a file of this name is one that was never finished. `start` is what stands ahead of the
/// random part.
bool IsUnfinished(QStringView name, QStringView start)
{
    if (!name.startsWith(start) || !name.endsWith(kEnding))
        return false;
    const qsizetype digits = name.size() - start.size() - kEnding.size();
    return digits >= 1 && digits <= kMostDigits
        && std::ranges::all_of(name.sliced(start.size(), digits), [](QChar c) {
               return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f');
           });
}

#ifdef Q_OS_UNIX

constexpr int kTries = 16; // for a name that nobody has; the first one does

QString TemporaryName(const QString &path)
{
    const quint64 random = QRandomGenerator::system()->generate64();
    return path + kMarker + QString::number(random, 16) + kEnding;
}

/// Opens a file beside `path` that was not there before. In the place of no file it has the mode
/// and the access list that the mode mask and the folder give to new files; else it is the user's
/// alone until KeepRights(), since who opened it earlier would read what is written later.
/// @return its name; empty when there can be none, with the reason in errno.
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
    // Changing the owner may take bits of the mode away, so the mode comes behind it.
    if (::fchmod(file.handle(), old.st_mode & 07777) != 0)
        Trace(u"Mode is not kept: ", path);
    KeepAccessList(file, name.constData());
}

QString SystemError()
{
    return QString::fromStdString(std::generic_category().message(errno));
}

/// `path` is no link.
QString Replace(const QString &path, const QByteArrayList &pieces)
{
    QFile file;
    const QString name = OpenNew(file, path);
    if (name.isEmpty())
        return SystemError();
    KeepRights(file, path);
    QString problem;
    if (!WriteAll(file, pieces) || !file.flush())
        problem = file.errorString();
    else if (::fsync(file.handle()) != 0
             || std::rename(QFile::encodeName(name).constData(),
                            QFile::encodeName(path).constData())
                    != 0)
        problem = SystemError();
    file.close();
    if (!problem.isEmpty())
        QFile::remove(name);
    return problem;
}

#else

QString Replace(const QString &path, const QByteArrayList &pieces)
{
    QSaveFile file(path);
    const bool done = file.open(QIODevice::WriteOnly) && WriteAll(file, pieces) && file.commit();
    return done ? QString() : file.errorString();
}

#endif

} // namespace

QString ReplaceFile(const QString &path, const QByteArrayList &pieces)
{
    const std::optional<QString> target = LinkTarget(path);
    return target ? Replace(*target, pieces) : u"symbolic links run in a circle"_s;
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
