#include "store/private_profile.h"

#include "core/text.h"
#include "core/windows1252.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kUtf8Mark = "\xEF\xBB\xBF";
constexpr QByteArrayView kUtf16Mark = "\xFF\xFE";
constexpr auto kLineEnd = "\r\n"_L1;
constexpr qsizetype kLongestValue = 4095; // a reader's buffer of 4096 less its closing NUL

bool IsLineEnd(QChar c)
{
    return c == u'\r' || c == u'\n';
}

/// What is ignored at both ends of lines and names. The byte 0xA0 is an ordinary character.
bool IsBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\f';
}

bool IsQuote(QChar c)
{
    return c == u'"' || c == u'\'';
}

bool IsAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c < QChar(0x80); });
}

QStringView UpToNul(QStringView text)
{
    const qsizetype nul = text.indexOf(u'\0');
    return nul < 0 ? text : text.first(nul);
}

QStringView TrimBlanks(QStringView text)
{
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && IsBlank(text.back()))
        text.chop(1);
    return text;
}

/// Takes a text apart into lines with their line ends.
QStringList SplitLines(QStringView text)
{
    const auto next = [text](QChar c, qsizetype from) {
        const qsizetype found = text.indexOf(c, from);
        return found < 0 ? text.size() : found;
    };
    QStringList lines;
    qsizetype carriageReturn = next(u'\r', 0);
    qsizetype lineFeed = next(u'\n', 0);
    for (qsizetype begin = 0; begin < text.size();) {
        if (carriageReturn < begin)
            carriageReturn = next(u'\r', begin);
        if (lineFeed < begin)
            lineFeed = next(u'\n', begin);
        const qsizetype last =
            lineFeed == carriageReturn + 1 ? lineFeed : std::min(carriageReturn, lineFeed);
        const qsizetype end = std::min(last + 1, text.size());
        lines.append(text.sliced(begin, end - begin).toString());
        begin = end;
    }
    return lines;
}

QStringView WithoutLineEnd(QStringView line)
{
    while (!line.isEmpty() && IsLineEnd(line.back()))
        line.chop(1);
    return line;
}

/// The section name in a line that begins with "[".
QStringView HeaderName(QStringView line)
{
    const qsizetype close = line.indexOf(u']');
    return TrimBlanks(close < 0 ? line.sliced(1) : line.sliced(1, close - 1));
}

/// A line that is a key line: what stands on both sides of the "=".
struct KeyText
{
    QStringView name = {};
    QStringView value = {}; ///< Without blanks at the ends, quotes included.
};

/// `line` is neither empty nor a comment nor a header, and has no blanks at the ends.
std::optional<KeyText> KeyTextOf(QStringView line)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        return std::nullopt;
    return KeyText{TrimBlanks(line.first(equals)), TrimBlanks(line.sliced(equals + 1))};
}

/// The same for a line that is known to be a key line.
KeyText KnownKeyText(QStringView line)
{
    return KeyTextOf(TrimBlanks(WithoutLineEnd(line))).value_or(KeyText());
}

/// The first 4095 characters; a surrogate pair is not cut in two.
QStringView UpToLongest(QStringView text)
{
    if (text.size() <= kLongestValue)
        return text;
    const bool splits =
        text[kLongestValue - 1].isHighSurrogate() && text[kLongestValue].isLowSurrogate();
    return text.first(splits ? kLongestValue - 1 : kLongestValue);
}

QStringView WithoutQuotePair(QStringView text)
{
    const bool quoted = text.size() >= 2 && IsQuote(text.front()) && text.front() == text.back();
    return quoted ? text.sliced(1, text.size() - 2) : text;
}

/// Letter by letter, so that no letter becomes two and different names stay different.
QString FoldCase(QString text)
{
    for (QChar &c : text)
        c = c.toCaseFolded();
    return text;
}

QString FromUtf8(QStringView units)
{
    // A mark inside the file is a character like any other, hence the flag.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(units.toLatin1());
}

/// One unit for each byte; half a surrogate pair, which has no UTF-8 form, becomes "?".
QString ToUtf8(QStringView text)
{
    return QString::fromLatin1(text.toUtf8());
}

QString FromUtf16Le(QByteArrayView bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(uchar(bytes[2 * i]), uchar(bytes[2 * i + 1]));
    return text;
}

QByteArray ToUtf16Le(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    for (const QChar c : text) {
        bytes.append(char(c.cell()));
        bytes.append(char(c.row()));
    }
    return bytes;
}

} // namespace

PrivateProfile::PrivateProfile(const QByteArray &bytes, CodePage codePage) : m_codePage(codePage)
{
    QByteArrayView rest(bytes);
    if (rest.startsWith(kUtf16Mark)) {
        m_encoding = Encoding::Utf16Le;
        m_mark = kUtf16Mark.toByteArray();
        rest = rest.sliced(m_mark.size());
        m_stray = rest.last(rest.size() % 2).toByteArray();
        m_lines = SplitLines(FromUtf16Le(rest));
    } else if (codePage == CodePage::Windows1252) {
        m_encoding = Encoding::Windows1252;
        m_lines = SplitLines(QString::fromLatin1(rest));
    } else {
        if (rest.startsWith(kUtf8Mark))
            m_mark = kUtf8Mark.toByteArray();
        rest = rest.sliced(m_mark.size());
        m_encoding = rest.isValidUtf8() ? Encoding::Utf8 : Encoding::Windows1252;
        m_lines = SplitLines(QString::fromLatin1(rest));
    }
    Index();
}

QString PrivateProfile::Value(QStringView section, QStringView key, QStringView fallback) const
{
    const qsizetype line = FindLine(section, key);
    if (line >= 0) {
        const QStringView stored = TrimBlanks(UpToNul(KnownKeyText(m_lines[line]).value));
        return UpToLongest(Decoded(WithoutQuotePair(stored))).toString();
    }
    fallback = UpToNul(fallback);
    while (fallback.endsWith(u' '))
        fallback.chop(1);
    return UpToLongest(fallback).toString();
}

void PrivateProfile::SetValue(QStringView section, QStringView key, QStringView value)
{
    const QString newValue = Encoded(UpToNul(value));
    const qsizetype line = FindLine(section, key);
    if (line >= 0) {
        const KeyText present = KnownKeyText(m_lines[line]);
        if (TrimBlanks(UpToNul(present.value)) == newValue)
            return;
        const QString text = present.name.toString() + u'=' + newValue + kLineEnd;
        m_lines.removeAt(line);
        InsertLines(line, text);
        return;
    }

    const QString text = Encoded(TrimSpaces(UpToNul(key))) + u'=' + newValue + kLineEnd;
    const auto found = m_sections.constFind(AskedName(section));
    if (found != m_sections.constEnd()) {
        InsertLines(found->newKeyAt, text);
        return;
    }
    const QString header = u'[' + Encoded(TrimSpaces(UpToNul(section))) + u']' + kLineEnd;
    InsertLines(m_lines.size(), header + text);
}

QByteArray PrivateProfile::Bytes() const
{
    QByteArray bytes = m_mark;
    for (const QString &line : m_lines)
        bytes += m_encoding == Encoding::Utf16Le ? ToUtf16Le(line) : line.toLatin1();
    return bytes + m_stray;
}

/// Notes the sections and keys that count. It looks at the beginning and end of each line only, so
/// long values cost nothing.
void PrivateProfile::Index()
{
    m_sections.clear();
    Section ignored; // takes the keys ahead of the first header, and those of repeated sections
    Section *current = &ignored;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const QStringView text = TrimBlanks(WithoutLineEnd(m_lines[i]));
        if (text.isEmpty() || text.front() == u';')
            continue;
        if (text.front() == u'[') {
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

/// The line of a key, -1 when there is none.
qsizetype PrivateProfile::FindLine(QStringView section, QStringView key) const
{
    const auto found = m_sections.constFind(AskedName(section));
    return found == m_sections.constEnd() ? -1 : found->keys.value(AskedName(key), -1);
}

/// Puts whole lines ahead of the line `at`, and ends the line in front of them if it is open.
void PrivateProfile::InsertLines(qsizetype at, QStringView text)
{
    // A file that holds nothing but a mark has a first line without an end, too.
    if (at > 0 && !IsLineEnd(m_lines[at - 1].back()))
        m_lines[at - 1] += kLineEnd;
    else if (at == 0 && !m_mark.isEmpty())
        m_lines.insert(at++, kLineEnd);

    for (const QString &line : SplitLines(text))
        m_lines.insert(at++, line);
    Index();
}

QString PrivateProfile::Decoded(QStringView units) const
{
    switch (m_encoding) {
    case Encoding::Utf8:
        return FromUtf8(units);
    case Encoding::Windows1252:
        return FromWindows1252(units.toLatin1());
    case Encoding::Utf16Le:
        break;
    }
    return InCodePage(units);
}

QString PrivateProfile::Encoded(QStringView text) const
{
    switch (m_encoding) {
    case Encoding::Utf8:
        return ToUtf8(text);
    case Encoding::Windows1252:
        return QString::fromLatin1(ToWindows1252(text));
    case Encoding::Utf16Le:
        break;
    }
    return InCodePage(text);
}

/// A UTF-16 file can hold every character, but only those of the code page pass in and out.
QString PrivateProfile::InCodePage(QStringView text) const
{
    return m_codePage == CodePage::Windows1252 ? FromWindows1252(ToWindows1252(text))
                                               : text.toString();
}

/// The form in which the name that stands in the file is looked up.
QString PrivateProfile::LookupName(QStringView stored) const
{
    return FoldCase(IsAscii(stored) ? stored.toString() : Decoded(stored));
}

/// The form in which the name that a caller gives is looked up: as it would stand in the file.
QString PrivateProfile::AskedName(QStringView given) const
{
    given = TrimSpaces(UpToNul(given));
    return FoldCase(IsAscii(given) ? given.toString() : Decoded(Encoded(given)));
}
