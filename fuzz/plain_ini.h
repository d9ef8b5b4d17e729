#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

// The rules of private-profile files, written a second time as plainly as possible: line by line,
// on copies of bytes in which line ends, blanks, quotes, brackets and "=" are single bytes. Names
// are ASCII, compared without regard to the case of A-Z.

inline QByteArrayList PlainLines(const QByteArray &bytes)
{
    QByteArrayList lines;
    QByteArray line;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        line.append(bytes[i]);
        const bool pair = bytes[i] == '\r' && bytes.mid(i + 1, 1) == "\n";
        if ((bytes[i] == '\r' && !pair) || bytes[i] == '\n') {
            lines.append(line);
            line.clear();
        }
    }
    if (!line.isEmpty())
        lines.append(line);
    return lines;
}

inline QByteArray PlainStripped(QByteArray text, const QByteArray &blanks = " \t\v\f")
{
    while (!text.isEmpty() && blanks.contains(text.front()))
        text.remove(0, 1);
    while (!text.isEmpty() && blanks.contains(text.back()))
        text.chop(1);
    return text;
}

inline bool PlainHasLineEnd(const QByteArray &line)
{
    return line.endsWith('\r') || line.endsWith('\n');
}

/// A line without its line end and without outer blanks.
inline QByteArray PlainText(QByteArray line)
{
    while (PlainHasLineEnd(line))
        line.chop(1);
    return PlainStripped(line);
}

/// The section that a line begins; nothing if it begins none.
inline std::optional<QByteArray> PlainHeader(const QByteArray &line)
{
    const QByteArray text = PlainText(line);
    if (!text.startsWith('['))
        return std::nullopt;
    const qsizetype close = text.indexOf(']');
    return PlainStripped(close < 0 ? text.mid(1) : text.mid(1, close - 1));
}

/// The key of a line; nothing if it is not a key line.
inline std::optional<QByteArray> PlainKey(const QByteArray &line)
{
    const QByteArray text = PlainText(line);
    if (text.startsWith('[') || text.startsWith(';') || !text.contains('='))
        return std::nullopt;
    return PlainStripped(text.left(text.indexOf('=')));
}

inline bool PlainSame(const QByteArray &a, const QByteArray &b)
{
    return a.toLower() == b.toLower();
}

/// Where a key is, and where a new one of its section goes.
struct PlainPlace
{
    qsizetype key = -1;    ///< Line of the key; -1: there is none.
    qsizetype newKey = -1; ///< Line before which a new key goes; -1: there is no such section.
};

inline PlainPlace PlainFind(const QByteArrayList &lines, const QByteArray &section,
                            const QByteArray &key)
{
    PlainPlace place;
    bool inside = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (const std::optional<QByteArray> header = PlainHeader(lines[i])) {
            if (place.newKey >= 0)
                return place; // the first section of that name is over
            inside = PlainSame(*header, section);
            place.newKey = inside ? i + 1 : -1;
        } else if (const std::optional<QByteArray> found = PlainKey(lines[i]); found && inside) {
            place.newKey = i + 1;
            if (place.key < 0 && PlainSame(*found, key))
                place.key = i;
        }
    }
    return place;
}

/// What follows the "=" of a key line, up to a NUL.
inline QByteArray PlainStored(const QByteArray &line)
{
    const QByteArray text = PlainText(line);
    const QByteArray value = text.mid(text.indexOf('=') + 1);
    return PlainStripped(value.contains('\0') ? value.left(value.indexOf('\0')) : value);
}

/// A value without the pair of quotes that may enclose it.
inline QByteArray PlainUnquoted(const QByteArray &value)
{
    const bool quoted = value.size() > 1 && (value.front() == '"' || value.front() == '\'')
                     && value.front() == value.back();
    return quoted ? value.mid(1, value.size() - 2) : value;
}

/// The lines of a file with one value written. A mark before the lines is not a line end.
inline QByteArray PlainWritten(const QByteArray &bytes, bool marked, const QByteArray &section,
                               const QByteArray &key, const QByteArray &value)
{
    QByteArrayList lines = PlainLines(bytes);
    const PlainPlace place = PlainFind(lines, section, key);
    if (place.key >= 0) {
        QByteArray &line = lines[place.key];
        if (PlainStored(line) != value)
            line = PlainKey(line).value_or("") + '=' + value + "\r\n";
        return lines.join();
    }
    const qsizetype at = place.newKey >= 0 ? place.newKey : lines.size();
    QByteArray before = lines.mid(0, at).join();
    const bool open = before.isEmpty() ? marked : !PlainHasLineEnd(before);
    if (open)
        before += "\r\n";
    if (place.newKey < 0)
        before += '[' + section + "]\r\n";
    return before + key + '=' + value + "\r\n" + lines.mid(at).join();
}
