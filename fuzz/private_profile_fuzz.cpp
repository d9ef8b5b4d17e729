#include "core/text.h"
#include "core/windows1252.h"
#include "fuzz_input.h"
#include "plain_ini.h"
#include "store/ini_value.h"
#include "store/private_profile.h"
#include "store/utf16_units.h"

#include <algorithm>

namespace {

const QByteArray kUtf8Mark = "\xEF\xBB\xBF";
const QByteArray kUtf16Mark = "\xFF\xFE";

/// A file, split as far as its encoding goes.
struct PlainFile
{
    enum class Encoding
    {
        Utf8,
        Windows1252,
        Utf16
    };
    CodePage codePage = CodePage::Utf8;
    Encoding encoding = Encoding::Windows1252;
    QByteArray mark = {};  ///< Not part of the first line.
    QByteArray lines = {}; ///< In a form to which the rules can be applied.
    QByteArray tail = {};  ///< A stray byte after the last line.
};

PlainFile Opened(const QByteArray &bytes, CodePage codePage)
{
    PlainFile file{.codePage = codePage};
    if (bytes.startsWith(kUtf16Mark)) {
        file.encoding = PlainFile::Encoding::Utf16;
        file.mark = kUtf16Mark;
        file.tail = bytes.right(bytes.size() % 2);
        file.lines = UnitsFromUtf16Le(bytes.sliced(2).chopped(file.tail.size()));
        return file;
    }
    if (codePage == CodePage::Utf8 && bytes.startsWith(kUtf8Mark))
        file.mark = kUtf8Mark;
    file.lines = bytes.sliced(file.mark.size());
    if (codePage == CodePage::Utf8 && file.lines.isValidUtf8())
        file.encoding = PlainFile::Encoding::Utf8;
    return file;
}

QByteArray Closed(const PlainFile &file, const QByteArray &lines)
{
    const bool utf16 = file.encoding == PlainFile::Encoding::Utf16;
    return file.mark + (utf16 ? UnitsToUtf16Le(lines) : lines) + file.tail;
}

QString InCodePage(const QString &text, CodePage codePage)
{
    return codePage == CodePage::Windows1252 ? FromWindows1252(ToWindows1252(text))
                                             : WithoutLoneSurrogates(text);
}

QString PlainDecoded(const PlainFile &file, const QByteArray &stored)
{
    switch (file.encoding) {
    case PlainFile::Encoding::Utf16:
        return InCodePage(FromUnits(stored), file.codePage);
    case PlainFile::Encoding::Windows1252:
        return FromWindows1252(stored);
    case PlainFile::Encoding::Utf8:
        break;
    }
    // A mark inside a file is a character, which Qt would drop at the beginning of a text.
    return QString::fromUtf8("x" + stored).sliced(1);
}

QByteArray PlainEncoded(const PlainFile &file, const QString &text)
{
    switch (file.encoding) {
    case PlainFile::Encoding::Utf16:
        return ToUnits(InCodePage(text, file.codePage));
    case PlainFile::Encoding::Windows1252:
        return ToWindows1252(text);
    case PlainFile::Encoding::Utf8:
        break;
    }
    return WithoutLoneSurrogates(text).toUtf8();
}

/// A value as it is read: blanks and one pair of quotes gone, cut, trimmed, tokens decoded.
QString PlainRead(const PlainFile &file, const QByteArray &stored)
{
    QString value = PlainDecoded(file, PlainUnquoted(PlainStripped(stored)));
    if (value.size() > 4095)
        value = value.left(value[4094].isHighSurrogate() ? 4094 : 4095);
    value = TrimSpaces(value).toString();
    return value.replace("[SP]", " ")
        .replace("[CR]", "\r")
        .replace("[LF]", "\n")
        .replace("[TAB]", "\t");
}

/// One value and what is done with it.
struct Asked
{
    QByteArray section = {};
    QByteArray key = {};
    QString value = {};
    bool encode = true;
};

/// A value as it is written: up to a NUL, with tokens or without outer spaces.
QByteArray PlainStoredForm(const PlainFile &file, const Asked &asked)
{
    QString value = asked.value;
    if (!asked.encode)
        value = TrimSpaces(value).toString();
    if (value.contains(QChar(0)))
        value.truncate(value.indexOf(QChar(0)));
    if (asked.encode) {
        value.replace(" ", "[SP]")
            .replace("\t", "[TAB]")
            .replace("\n", "[LF]")
            .replace("\r", "[CR]");
    }
    return PlainEncoded(file, value);
}

std::optional<QString> Found(const PrivateProfile &profile, const Asked &asked)
{
    return FindIniValue(profile, QString::fromLatin1(asked.section),
                        QString::fromLatin1(asked.key));
}

void CheckReading(const PrivateProfile &profile, const PlainFile &file, const Asked &asked)
{
    const QByteArrayList lines = PlainLines(file.lines);
    const PlainPlace place = PlainFind(lines, asked.section, asked.key);
    const std::optional<QString> found = Found(profile, asked);
    Demand(found.has_value() == (place.key >= 0), "a key is found where it is");
    Demand(!found || *found == PlainRead(file, PlainStored(lines[place.key])), "its value is read");
}

void CheckWriting(PrivateProfile &profile, const PlainFile &file, const Asked &asked)
{
    WriteIniValue(profile, QString::fromLatin1(asked.section), QString::fromLatin1(asked.key),
                  asked.value, asked.encode);

    const QByteArray stored = PlainStoredForm(file, asked);
    const QByteArray written = profile.Bytes();
    const QByteArray lines =
        PlainWritten(file.lines, !file.mark.isEmpty(), asked.section, asked.key, stored);
    Demand(written == Closed(file, lines), "only the value's line changes");
    const PrivateProfile again(written, file.codePage);
    Demand(again.Bytes() == written, "what was written stays");
    if (stored.contains('\r') || stored.contains('\n'))
        return; // a value of several lines is up to the writer
    Demand(Found(profile, asked) == PlainRead(file, stored), "it is read back");
    // The first character beyond ASCII may settle the encoding of a file that had none.
    if (Opened(written, file.codePage).encoding == file.encoding)
        Demand(Found(again, asked) == PlainRead(file, stored), "others read it, too");
}

/// A name that a file keeps unchanged.
QByteArray NameOf(QByteArray line)
{
    line.removeIf([](char c) { return c <= ' ' || c > '~' || c == ']' || c == '=' || c == '['; });
    return line.startsWith(';') || line.isEmpty() ? "TEMP" : line;
}

} // namespace

// The contract: an image keeps its bytes until it is written to. Writing changes the bytes as the
// plain version does: the value's line, and a line end after a last line that has none. Reading
// gives what the plain version reads, before and after, from the image and from a file made of its
// bytes. The words of the first line choose what is done.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    FuzzInput input(bytes, size);
    const QByteArray mode = input.Line();
    const auto codePage = mode.contains("1252") ? CodePage::Windows1252 : CodePage::Utf8;
    Asked asked{.section = NameOf(input.Line()), .key = NameOf(input.Line())};
    asked.value = TextOf(input.Line());
    asked.encode = !mode.contains("plain");
    if (mode.contains("lines"))
        asked.value.replace("|", "\r\n");
    if (mode.contains("long"))
        asked.value = asked.value.repeated(700);
    QByteArray image = input.Rest();
    if (mode.contains("wide"))
        image = kUtf16Mark + UnitsToUtf16Le(ToUnits(TextOf(image)));

    PrivateProfile profile(image, codePage);
    Demand(profile.Bytes() == image, "an untouched image keeps its bytes");
    const PlainFile file = Opened(image, codePage);
    CheckReading(profile, file, asked);
    CheckWriting(profile, file, asked);
    return 0;
}
