#include "store/ini_file.h"

#include "core/trace.h"
#include "store/replaced_file.h"

#include <QFile>
#include <QFileInfo>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The bytes of the file; nothing if there is a file that cannot be read just now. Anything but a
/// plain file counts as missing, because a pipe would block the program.
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

WriteError IniFile::Commit() const
{
    WriteError error{WriteError::Kind::Unreadable, u"it could not be read before"_s};
    if (m_readable)
        error = ReplaceFile(m_path.path, m_profile.Pieces());
    if (error.IsError())
        Trace(u"Unable to write ", m_path.path, u": ", error.text);
    return error;
}
