#include "store/ini_file.h"

#include "core/text.h"
#include "core/trace.h"
#include "store/replaced_file.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A character that a value cannot hold as it is, and what stands for it in the file.
struct Escape
{
    QLatin1StringView token = {};
    char character = 0;
};

// In the order of decoding.
constexpr std::array kEscapes{Escape{"[SP]"_L1, ' '}, Escape{"[CR]"_L1, '\r'},
                              Escape{"[LF]"_L1, '\n'}, Escape{"[TAB]"_L1, '\t'}};

constexpr qsizetype kLongestToken = 5;

bool MayNeedToken(char c)
{
    return uchar(c) <= uchar(' ');
}

const Escape *EscapeOf(char c)
{
    const auto *const found = std::ranges::find(kEscapes, c, &Escape::character);
    return found == kEscapes.end() ? nullptr : found;
}

/// Works on bytes, in which the escaped characters are themselves in every encoding: a value may be
/// as long as a whole reply. The order of the escapes makes no difference here, because no token
/// holds a character that another one stands for.
QByteArray WithTokens(const QByteArray &value)
{
    const auto suspects = std::ranges::count_if(value, MayNeedToken);
    if (suspects == 0)
        return value;

    QByteArray encoded(value.size() + suspects * kLongestToken, Qt::Uninitialized);
    char *end = encoded.data();
    for (const char c : value) {
        const Escape *const escape = MayNeedToken(c) ? EscapeOf(c) : nullptr;
        if (escape == nullptr)
            *end++ = c;
        else
            end = std::copy(escape->token.begin(), escape->token.end(), end);
    }
    encoded.truncate(end - encoded.constData());
    return encoded;
}

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

QString ReadIniValue(const IniFile &file, QStringView section, QStringView key,
                     QStringView fallback)
{
    const QString stored = file.Profile().Value(section, key, fallback);
    QString value = TrimSpaces(stored).toString();
    for (const Escape &escape : kEscapes)
        value.replace(escape.token, QString(QLatin1Char(escape.character)));
    return value;
}

void WriteIniValue(IniFile &file, QStringView section, QStringView key, QStringView value,
                   bool encode)
{
    // With tokens there is no space left that could be taken away.
    PrivateProfile &profile = file.Profile();
    if (encode)
        profile.SetEncodedValue(section, key, WithTokens(profile.Encoded(value)));
    else
        profile.SetValue(section, key, TrimSpaces(value));
}
