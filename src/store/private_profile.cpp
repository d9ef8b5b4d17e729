#include "store/private_profile.h"

#include "core/text.h"
#include "core/windows1252.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

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

/// Length of the first line of a text that is not empty, with its line end.
qsizetype LineLength(QStringView text)
{
    const auto end = std::find_if(text.begin(), text.end(), IsLineEnd) - text.begin();
    if (end == text.size())
        return end;
    return text.sliced(end).startsWith(kLineEnd) ? end + 2 : end + 1;
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
    QString whole = text.toString();
    for (qsizetype i = 0; i < whole.size(); ++i) {
        if (!whole[i].isSurrogate())
            continue;
        if (whole[i].isHighSurrogate() && i + 1 < whole.size() && whole[i + 1].isLowSurrogate())
            ++i;
        else
            whole[i] = u'?';
    }
    return QString::fromLatin1(whole.toUtf8());
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
        m_units = FromUtf16Le(rest);
    } else if (codePage == CodePage::Windows1252) {
        m_encoding = Encoding::Windows1252;
        m_units = QString::fromLatin1(rest);
    } else {
        if (rest.startsWith(kUtf8Mark))
            m_mark = kUtf8Mark.toByteArray();
        rest = rest.sliced(m_mark.size());
        m_encoding = rest.isValidUtf8() ? Encoding::Utf8 : Encoding::Windows1252;
        m_units = QString::fromLatin1(rest);
    }
    Index();
}

QString PrivateProfile::Value(QStringView section, QStringView key, QStringView fallback) const
{
    const KeyLine *line = Find(section, key);
    if (line != nullptr)
        return UpToLongest(Decoded(WithoutQuotePair(Units(line->value)))).toString();

    fallback = UpToNul(fallback);
    while (fallback.endsWith(u' '))
        fallback.chop(1);
    return UpToLongest(fallback).toString();
}

void PrivateProfile::SetValue(QStringView section, QStringView key, QStringView value)
{
    const QString newValue = Encoded(UpToNul(value));
    if (const KeyLine *line = Find(section, key)) {
        if (Units(line->value) == newValue)
            return;
        const Range at = line->line;
        const QString text = Units(line->name).toString() + u'=' + newValue + kLineEnd;
        m_units.replace(at.begin, at.end - at.begin, text);
        Index();
        return;
    }

    QString text = Encoded(TrimSpaces(UpToNul(key))) + u'=' + newValue + kLineEnd;
    qsizetype at = m_units.size();
    const auto found = m_sections.constFind(AskedName(section));
    if (found != m_sections.constEnd())
        at = found->newKeyAt;
    else
        text.prepend(u'[' + Encoded(TrimSpaces(UpToNul(section))) + u']' + kLineEnd);

    // A file that holds nothing but a mark has a first line without an end, too.
    const bool open = at > 0 ? !IsLineEnd(m_units[at - 1]) : !m_mark.isEmpty();
    if (open)
        text.prepend(kLineEnd);
    m_units.insert(at, text);
    Index();
}

QByteArray PrivateProfile::Bytes() const
{
    if (m_encoding == Encoding::Utf16Le)
        return m_mark + ToUtf16Le(m_units) + m_stray;
    return m_mark + m_units.toLatin1();
}

/// Takes the text apart into lines and notes the sections and keys that count.
void PrivateProfile::Index()
{
    m_sections.clear();
    Section ignored; // takes the keys ahead of the first header, and those of repeated sections
    Section *current = &ignored;
    for (QStringView rest = m_units; !rest.isEmpty();) {
        const QStringView line = rest.first(LineLength(rest));
        rest = rest.sliced(line.size());

        const QStringView text = TrimBlanks(WithoutLineEnd(line));
        if (text.isEmpty() || text.front() == u';')
            continue;
        if (text.front() != u'[') {
            IndexKey(*current, line, text);
            continue;
        }
        const QString name = LookupName(HeaderName(text));
        current = m_sections.contains(name) ? &ignored : &m_sections[name];
        current->newKeyAt = RangeOf(line).end;
    }
}

/// Notes `text`, the trimmed `line`, if it is a key line.
void PrivateProfile::IndexKey(Section &section, QStringView line, QStringView text)
{
    const qsizetype equals = text.indexOf(u'=');
    if (equals < 0)
        return;
    section.newKeyAt = RangeOf(line).end;
    const QStringView name = TrimBlanks(text.first(equals));
    const QString lookupName = LookupName(name);
    if (section.keys.contains(lookupName))
        return;
    // Whoever hands a value over ends it at its first NUL.
    const QStringView value = TrimBlanks(UpToNul(text.sliced(equals + 1)));
    section.keys.insert(lookupName,
                        {.line = RangeOf(line), .name = RangeOf(name), .value = RangeOf(value)});
}

const PrivateProfile::KeyLine *PrivateProfile::Find(QStringView section, QStringView key) const
{
    const auto foundSection = m_sections.constFind(AskedName(section));
    if (foundSection == m_sections.constEnd())
        return nullptr;
    const auto foundKey = foundSection->keys.constFind(AskedName(key));
    return foundKey == foundSection->keys.constEnd() ? nullptr : &*foundKey;
}

/// Where `part`, a view into the units, lies in them.
PrivateProfile::Range PrivateProfile::RangeOf(QStringView part) const
{
    const qsizetype begin = part.begin() - QStringView(m_units).begin();
    return {begin, begin + part.size()};
}

QStringView PrivateProfile::Units(Range range) const
{
    return QStringView(m_units).sliced(range.begin, range.end - range.begin);
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
