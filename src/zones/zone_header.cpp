#include "zones/zone_header.h"

#include "core/text.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The lines of a text, one after another. A text has one more line than it has line ends.
class Lines
{
public:
    explicit Lines(QStringView text) : m_rest(text) {}

    /// @return nothing after the last line.
    [[nodiscard]] std::optional<QStringView> Next()
    {
        if (m_ended)
            return std::nullopt;
        const qsizetype end = m_rest.indexOf(u'\n');
        m_ended = end < 0;
        const QStringView line = m_ended ? m_rest : m_rest.first(end);
        m_rest = m_rest.sliced(m_ended ? m_rest.size() : end + 1);
        return line;
    }

private:
    QStringView m_rest;
    bool m_ended = false;
};

/// @param zone in capital letters.
bool BeginsWithZone(QStringView line, const QString &zone)
{
    return line.first(std::min(line.size(), zone.size())).toString().toUpper().startsWith(zone);
}

/// The first line after the one that begins with `zone`.
std::optional<QStringView> FirstNameLine(Lines &lines, const QString &zone)
{
    while (const std::optional<QStringView> line = lines.Next()) {
        if (BeginsWithZone(*line, zone))
            return lines.Next();
    }
    return std::nullopt;
}

/// Whether a line ends the header: the time of issue or an empty line.
bool EndsHeader(QStringView line)
{
    return line.isEmpty() || IsDigit(line.front());
}

void AppendNames(QString &entry, QStringView line)
{
    if (entry.endsWith(u'-')) {
        entry.chop(1);
        entry.append(", "_L1);
    }
    entry.append(line);
}

} // namespace

std::optional<QString> ZoneEntry(QStringView file, const QString &fileName)
{
    const QString zone = QString(fileName).remove(".txt"_L1).toUpper();
    Lines lines(file);
    const std::optional<QStringView> names = FirstNameLine(lines, zone);
    if (!names)
        return std::nullopt;

    QString entry = zone + ":  "_L1;
    entry.append(*names);
    for (auto line = lines.Next(); line && !EndsHeader(*line); line = lines.Next())
        AppendNames(entry, *line);
    if (entry.endsWith(u'-'))
        entry.chop(1);
    return ReplaceAll(entry, u"...", u", ");
}
