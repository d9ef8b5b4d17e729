#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>

/// How the bytes of the program's INI files stand for characters.
enum class CodePage
{
    Utf8,        ///< Files that are not valid UTF-8 are taken as Windows-1252 and stay so.
    Windows1252, ///< One byte, one character; an UTF-8 mark is not understood.
};

/// The image of one INI file, taken apart once: values can be read and written, and every line that
/// is not concerned keeps its exact bytes.
///
/// The rules are those of the private-profile files that broadcast automation systems share: the
/// first section of a name and in it the first key of a name count, names are compared without
/// regard to case, one pair of quotes round a value is dropped, nothing else is interpreted.
class PrivateProfile
{
public:
    PrivateProfile() : PrivateProfile(QByteArray(), CodePage::Utf8) {}
    PrivateProfile(QByteArray bytes, CodePage codePage);

    /// The value of `key` in `section`, cut to 4095 characters; nothing when there is no such key.
    [[nodiscard]] std::optional<QString> Find(QStringView section, QStringView key) const;

    /// The same.
    /// @return `fallback` without its trailing spaces, cut likewise, when there is no such key.
    [[nodiscard]] QString Value(QStringView section, QStringView key, QStringView fallback) const;

    /// Writes `value` as given (up to its first NUL): in place when the key is there, else behind
    /// the last key of its section, else in a new section at the end. A value that is there already
    /// leaves its line as it is. Characters that the code page or the file's encoding lacks become
    /// "?", half a surrogate pair becomes U+FFFD first.
    void SetValue(QStringView section, QStringView key, QStringView value);

    /// The form in which `text` (up to its first NUL) stands in a line; for SetEncodedValue().
    [[nodiscard]] QByteArray Encoded(QStringView text) const;

    /// As SetValue(), for a value that Encoded() has made; what it has in ASCII may be changed.
    void SetEncodedValue(QStringView section, QStringView key, QByteArrayView value);

    /// The file's bytes as they are to be stored, in pieces that share their memory with the image.
    [[nodiscard]] QByteArrayList Pieces() const;

    /// The same in one.
    [[nodiscard]] QByteArray Bytes() const { return Pieces().join(); }

private:
    enum class Encoding
    {
        Utf8,
        Windows1252,
        Utf16Le
    };

    /// The first section of its name.
    struct Section
    {
        qsizetype newKeyAt = 0; ///< The line behind the last key line, or behind the header.
        QHash<QString, qsizetype> keys = {}; ///< Line of the first key of each name.
    };

    void Index();
    [[nodiscard]] qsizetype FindLine(QStringView section, QStringView key) const;
    void InsertLines(qsizetype at, const QByteArray &text);

    [[nodiscard]] QString Decoded(QByteArrayView stored) const;
    [[nodiscard]] QString InCodePage(QStringView text) const;
    [[nodiscard]] QString LookupName(QByteArrayView stored) const;
    [[nodiscard]] QString AskedName(QStringView given) const;

    CodePage m_codePage;
    Encoding m_encoding = Encoding::Utf8;
    QByteArray m_mark = {};  ///< Byte order mark, kept in front of everything.
    QByteArray m_image = {}; ///< What was read. Lines that are as they were are parts of it.
    /// The lines with their line ends, in the file's own bytes; those of a UTF-16 file with one to
    /// three bytes for each unit, so that ASCII is itself everywhere. Line ends, blanks, "=" and
    /// brackets are single bytes then, the rules of the format work on bytes, and only the names
    /// and values that are asked for are decoded.
    QByteArrayList m_lines = {};
    QByteArray m_stray = {}; ///< The last byte of a UTF-16 file of odd length, kept at the end.
    QHash<QString, Section> m_sections = {}; ///< By name in folded case, as the keys in them.
};
