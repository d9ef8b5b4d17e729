#include "store/ini_file.h"

#include "core/trace.h"
#include "store/replaced_file.h"

#include <QFile>
#include <QFileInfo>

#include <optional>
#include <utility>

namespace {

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
    const QString problem = ReplaceFile(m_path.path, m_profile.Pieces());
    if (!problem.isEmpty())
        Trace(u"Unable to write ", m_path.path, u": ", problem);
    return problem.isEmpty();
}
