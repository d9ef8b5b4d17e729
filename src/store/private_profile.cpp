#include "store/private_profile.h"

#include "core/text.h"
#include "store/utf16_units.h"

#include <algorithm>
#include <utility>

namespace {

constexpr QByteArrayView kLineEnd = "\r\n";
constexpr qsizetype kLongestValue = 4095; // a reader's buffer of 4096, less the closing NUL

bool IsLineEnd(char c)
{
    return c == '\r' || c == '\n';
}

/// Ignored at both ends of lines and names. The byte 0xA0 is an ordinary character.
bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

bool IsQuote(char c)
{
    return c == '"' || c == '\'';
}

constexpr char16_t kAfterAscii = 0x80;

bool IsAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return uchar(c) < kAfterAscii; });
}

bool IsAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c < QChar(kAfterAscii); });
}

QByteArrayView UpToNul(QByteArrayView bytes)
{
    const qsizetype nul = bytes.indexOf('\0');
    return nul < 0 ? bytes : bytes.first(nul);
}

QByteArrayView TrimBlanks(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && IsBlank(bytes.front()))
        bytes = bytes.sliced(1);
    while (!bytes.isEmpty() && IsBlank(bytes.back()))
        bytes.chop(1);
    return bytes;
}

/// Splits bytes into lines with their line ends. The lines are parts of `bytes`, which must outlive
/// them.
QByteArrayList SplitLines(QByteArrayView bytes)
{
    const auto next = [bytes](char c, qsizetype from) {
        const qsizetype found = bytes.indexOf(c, from);
        return found < 0 ? bytes.size() : found;
    };
    QByteArrayList lines;
    qsizetype carriageReturn = next('\r', 0);
    qsizetype lineFeed = next('\n', 0);
    for (qsizetype begin = 0; begin < bytes.size();) {
        if (carriageReturn < begin)
            carriageReturn = next('\r', begin);
        if (lineFeed < begin)
            lineFeed = next('\n', begin);
        const qsizetype last =
            lineFeed == carriageReturn + 1 ? lineFeed : std::min(carriageReturn, lineFeed);
        const qsizetype end = std::min(last + 1, bytes.size());
        lines.append(QByteArray::fromRawData(bytes.data() + begin, end - begin));
        begin = end;
    }
    return lines;
}

QByteArrayView WithoutLineEnd(QByteArrayView line)
{
    while (!line.isEmpty() && IsLineEnd(line.back()))
        line.chop(1);
    return line;
}

/// The section name in a line that begins with "[".
QByteArrayView HeaderName(QByteArrayView line)
{
    const qsizetype close = line.indexOf(']');
    return TrimBlanks(close < 0 ? line.sliced(1) : line.sliced(1, close - 1));
}

/// A key line: what is on both sides of the "=".
struct KeyText
{
    QByteArrayView name = {};
    QByteArrayView value = {}; ///< Without outer blanks, but with its quotes.
};

/// @param line neither empty nor a comment nor a header, and without outer blanks.
/// @return nothing if it is no key line.
std::optional<KeyText> KeyTextOf(QByteArrayView line)
{
    const qsizetype equals = line.indexOf('=');
    if (equals < 0)
        return std::nullopt;
    return KeyText{TrimBlanks(line.first(equals)), TrimBlanks(line.sliced(equals + 1))};
}

/// The same for a line that is known to be a key line.
KeyText KnownKeyText(QByteArrayView line)
{
    return KeyTextOf(TrimBlanks(WithoutLineEnd(line))).value_or(KeyText());
}

/// A key line with its line end.
QByteArray KeyLine(QByteArrayView name, QByteArrayView value)
{
    QByteArray line;
    line.reserve(name.size() + 1 + value.size() + kLineEnd.size());
    line.append(name).append('=').append(value).append(kLineEnd);
    return line;
}

QByteArrayView WithoutQuotePair(QByteArrayView bytes)
{
    const bool quoted =
        bytes.size() >= 2 && IsQuote(bytes.front()) && bytes.front() == bytes.back();
    return quoted ? bytes.sliced(1, bytes.size() - 2) : bytes;
}

/// Letter by letter, so that no letter becomes two and different names remain different.
QString FoldCase(QString text)
{
    for (QChar &c : text) {
        const char16_t code = c.unicode();
        const bool isCapital = code >= u'A' && code <= u'Z';
        if (isCapital || code >= kAfterAscii) // nearly all are neither
            c = c.toCaseFolded();
    }
    return text;
}

} // namespace

PrivateProfile::PrivateProfile(QByteArray bytes, CodePage codePage)
    : m_encoding(bytes, codePage)
    , m_image(std::move(bytes))
{
    QByteArrayView rest = QByteArrayView(m_image).sliced(m_encoding.Mark().size());
    if (m_encoding.IsUtf16()) {
        m_stray = rest.last(rest.size() % 2).toByteArray();
        m_image = UnitsFromUtf16Le(rest);
        rest = m_image;
    }
    m_lines = SplitLines(rest);
    Index();
}

std::optional<QString> PrivateProfile::Find(QStringView section, QStringView key) const
{
    const qsizetype line = FindLine(section, key);
    if (line < 0)
        return std::nullopt;
    const QByteArrayView stored = TrimBlanks(UpToNul(KnownKeyText(m_lines[line]).value));
    return FirstCharacters(m_encoding.Decoded(WithoutQuotePair(stored)), kLongestValue).toString();
}

QString PrivateProfile::Value(QStringView section, QStringView key, QStringView fallback) const
{
    if (std::optional<QString> found = Find(section, key))
        return *std::move(found);
    fallback = UpToNul(fallback);
    while (fallback.endsWith(u' '))
        fallback.chop(1);
    return FirstCharacters(fallback, kLongestValue).toString();
}

void PrivateProfile::SetValue(QStringView section, QStringView key, QStringView value)
{
    SetEncodedValue(section, key, Encoded(value));
}

void PrivateProfile::SetEncodedValue(QStringView section, QStringView key, QByteArrayView value)
{
    const qsizetype line = FindLine(section, key);
    if (line >= 0) {
        const KeyText present = KnownKeyText(m_lines[line]);
        if (TrimBlanks(UpToNul(present.value)) == value)
            return;
        const QByteArray text = KeyLine(present.name, value);
        m_lines.removeAt(line);
        InsertLines(line, text);
        return;
    }

    const QByteArray text = KeyLine(Encoded(TrimSpaces(UpToNul(key))), value);
    const auto found = m_sections.constFind(AskedName(section));
    if (found != m_sections.constEnd()) {
        InsertLines(found->newKeyAt, text);
        return;
    }
    const QByteArray header = '[' + Encoded(TrimSpaces(UpToNul(section))) + ']';
    InsertLines(m_lines.size(), header + kLineEnd.toByteArray() + text);
}

QByteArrayList PrivateProfile::Pieces() const
{
    QByteArrayList pieces;
    pieces.reserve(m_lines.size() + 2);
    pieces.append(m_encoding.Mark());
    if (m_encoding.IsUtf16()) {
        for (const QByteArray &line : m_lines)
            pieces.append(UnitsToUtf16Le(line));
    } else {
        pieces.append(m_lines);
    }
    pieces.append(m_stray);
    return pieces;
}

/// Indexes the sections and keys that count. It only looks at the beginning and end of each line,
/// so long values cost nothing.
void PrivateProfile::Index()
{
    m_sections.clear();
    Section ignored; // gets the keys before the first header, and those of repeated sections
    Section *current = &ignored;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const QByteArrayView text = TrimBlanks(WithoutLineEnd(m_lines[i]));
        if (text.isEmpty() || text.front() == ';')
            continue;
        if (text.front() == '[') {
            const QString name = LookupName(HeaderName(text));
            current = m_sections.contains(name) ? &ignored : &m_sections[name];
            current->newKeyAt = i + 1;
        } else if (const auto keyText = KeyTextOf(text)) {
            current->newKeyAt = i + 1;
            const QString name = LookupName(keyText->name);
            if (!current->keys.contains(name))
                current->keys.insert(name, i);
        }
    }
}

/// The line of a key; -1 if there is none.
qsizetype PrivateProfile::FindLine(QStringView section, QStringView key) const
{
    const auto found = m_sections.constFind(AskedName(section));
    return found == m_sections.constEnd() ? -1 : found->keys.value(AskedName(key), -1);
}

/// Inserts whole lines before the line `at`, and ends the line before them if it is open.
void PrivateProfile::InsertLines(qsizetype at, const QByteArray &text)
{
    // A mark with nothing after it is a first line without an end, too.
    if (at > 0 && !IsLineEnd(m_lines[at - 1].back()))
        m_lines[at - 1] += kLineEnd;
    else if (at == 0 && !m_encoding.Mark().isEmpty())
        m_lines.insert(at++, kLineEnd.toByteArray());

    // A single line is not copied: it may be megabytes long.
    const QByteArrayList lines = SplitLines(text);
    for (const QByteArray &line : lines)
        m_lines.insert(at++, lines.size() == 1 ? text : QByteArray(line.data(), line.size()));
    Index();
}

/// The form in which a name in the file is looked up.
QString PrivateProfile::LookupName(QByteArrayView stored) const
{
    return FoldCase(IsAscii(stored) ? QString::fromLatin1(stored) : m_encoding.Decoded(stored));
}

/// The form in which a caller's name is looked up: as it would be in the file.
QString PrivateProfile::AskedName(QStringView given) const
{
    given = TrimSpaces(UpToNul(given));
    return FoldCase(IsAscii(given) ? given.toString() : m_encoding.Decoded(Encoded(given)));
}
