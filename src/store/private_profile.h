#pragma once

#include "store/ini_encoding.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>

/// The image of one INI file, parsed once: values can be read and written, and every unaffected
/// line keeps its exact bytes.
///
/// The rules are those of the private-profile files that broadcast automation systems share: the
/// first section of a name and in it the first key of a name count, names are case-insensitive, one
/// pair of quotes around a value is dropped, nothing else is interpreted.
class PrivateProfile
{
public:
    PrivateProfile() : PrivateProfile(QByteArray(), CodePage::Utf8) {}
    PrivateProfile(QByteArray bytes, CodePage codePage);

    /// The value of `key` in `section`, cut to 4095 characters; nothing if there is no such key.
    [[nodiscard]] std::optional<QString> Find(QStringView section, QStringView key) const;

    /// The same.
    /// @return `fallback` without its trailing spaces, cut likewise, if there is no such key.
    [[nodiscard]] QString Value(QStringView section, QStringView key, QStringView fallback) const;

    /// Writes `value` as given (up to its first NUL): in place if the key is there, else after the
    /// last key of its section, else in a new section at the end. If the value is there already,
    /// its line is left unchanged. Characters that the code page or the file's encoding lacks
    /// become "?", half a surrogate pair becomes U+FFFD first.
    void SetValue(QStringView section, QStringView key, QStringView value);

    /// The form of `text` (up to its first NUL) in a line; for SetEncodedValue().
    [[nodiscard]] QByteArray Encoded(QStringView text) const { return m_encoding.Encoded(text); }

    /// Like SetValue(), for a value that Encoded() has made; its ASCII may have been changed.
    void SetEncodedValue(QStringView section, QStringView key, QByteArrayView value);

    /// The file's bytes as they are to be stored, in pieces that share their memory with the image.
    [[nodiscard]] QByteArrayList Pieces() const;

    /// The same in one.
    [[nodiscard]] QByteArray Bytes() const { return Pieces().join(); }

private:
    /// The first section of its name.
    struct Section
    {
        qsizetype newKeyAt = 0; ///< The line after the last key line, or after the header.
        QHash<QString, qsizetype> keys = {}; ///< Line of the first key of each name.
    };

    void Index();
    [[nodiscard]] qsizetype FindLine(QStringView section, QStringView key) const;
    void InsertLines(qsizetype at, const QByteArray &text);

    [[nodiscard]] QString LookupName(QByteArrayView stored) const;
    [[nodiscard]] QString AskedName(QStringView given) const;

    IniEncoding m_encoding;  ///< Its mark is kept in front of everything.
    QByteArray m_image = {}; ///< What was read. Unchanged lines are parts of it.
    /// The lines with their line ends, in the file's own bytes; those of a UTF-16 file with one to
    /// three bytes for each unit, so that ASCII is itself everywhere. Line ends, blanks, "=" and
    /// brackets are then single bytes, the rules of the format work on bytes, and only requested
    /// names and values are decoded.
    QByteArrayList m_lines = {};
    QByteArray m_stray = {}; ///< The last byte of a UTF-16 file of odd length, kept at the end.
    QHash<QString, Section> m_sections = {}; ///< By name in folded case, like the keys in them.
};
