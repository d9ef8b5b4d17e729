#include "store/ini_file.h"

#include "core/text.h"
#include "core/trace.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// A character that a value cannot hold as it is, and what stands for it in the file.
struct Escape
{
    QLatin1StringView token;
    QChar character;
};

// In the order of decoding.
constexpr std::array kEscapes{Escape{"[SP]"_L1, u' '}, Escape{"[CR]"_L1, u'\r'},
                              Escape{"[LF]"_L1, u'\n'}, Escape{"[TAB]"_L1, u'\t'}};

/// Goes over the text once: a value may be as long as a whole reply, and the order of the escapes
/// makes no difference here, because no token holds a character that another one stands for.
QString WithTokens(QStringView text)
{
    QString encoded;
    encoded.reserve(text.size() + text.size() / 2);
    qsizetype plain = 0; // begin of what needs no token
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] > u' ')
            continue;
        const auto *const escape =
            std::find_if(kEscapes.begin(), kEscapes.end(),
                         [c = text[i]](const Escape &e) { return e.character == c; });
        if (escape == kEscapes.end())
            continue;
        encoded.append(text.sliced(plain, i - plain)).append(escape->token);
        plain = i + 1;
    }
    return encoded.append(text.sliced(plain));
}

constexpr int kMaxLinks = 40; // as many as the system itself follows

/// The bytes of the file; nothing when there is a file that cannot be read just now. What can stand
/// in a path but is no plain file reads as missing: a pipe would hold up the program.
std::optional<QByteArray> FileBytes(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return QByteArray();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    return file.error() == QFile::NoError ? std::optional(bytes) : std::nullopt;
}

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

/// Gives the open `file` the owner and the group of the file that it is to replace, as far as the
/// system lets this user do so.
void KeepOwner(const QSaveFile &file, const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat old = {};
    if (::stat(QFile::encodeName(path).constData(), &old) != 0)
        return;
    if (::fchown(file.handle(), old.st_uid, old.st_gid) != 0
        && ::fchown(file.handle(), static_cast<uid_t>(-1), old.st_gid) != 0)
        Trace(u"Owner and group are not kept: ", path);
    // Changing the owner may take bits of the mode away, so the mode comes last.
    if (::fchmod(file.handle(), old.st_mode & 07777) != 0)
        Trace(u"Mode is not kept: ", path);
#else
    Q_UNUSED(file)
    Q_UNUSED(path)
#endif
}

} // namespace

IniFile::IniFile(IniPath path) : m_path(std::move(path))
{
    const std::optional<QByteArray> bytes = FileBytes(m_path.path);
    m_readable = bytes.has_value();
    m_profile = PrivateProfile(bytes.value_or(QByteArray()), m_path.codePage);
}

bool IniFile::Commit() const
{
    if (!m_readable) {
        Trace(u"Unable to write ", m_path.path, u": it could not be read before");
        return false;
    }
    const auto path = LinkTarget(m_path.path);
    if (!path) {
        Trace(u"Unable to write ", m_path.path, u": symbolic links run in a circle");
        return false;
    }
    const QByteArray bytes = m_profile.Bytes();
    QSaveFile file(*path);
    file.setDirectWriteFallback(false);
    if (file.open(QIODevice::WriteOnly)) {
        KeepOwner(file, *path);
        if (file.write(bytes) == bytes.size() && file.commit())
            return true;
    }
    Trace(u"Unable to write ", m_path.path, u": ", file.errorString());
    return false;
}

QString ReadIniValue(const IniFile &file, QStringView section, QStringView key,
                     QStringView fallback)
{
    const QString stored = file.Profile().Value(section, key, fallback);
    QString value = TrimSpaces(stored).toString();
    for (const Escape &escape : kEscapes)
        value.replace(escape.token, QString(escape.character));
    return value;
}

void WriteIniValue(IniFile &file, QStringView section, QStringView key, QStringView value,
                   bool encode)
{
    const QString text = encode ? WithTokens(value) : value.toString();
    file.Profile().SetValue(section, key, TrimSpaces(text));
}
