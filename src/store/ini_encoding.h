#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// How the bytes of the program's INI files encode characters.
enum class CodePage
{
    Utf8,        ///< Files that are not valid UTF-8 are taken as Windows-1252 and stay so.
    Windows1252, ///< One byte, one character; an UTF-8 mark is not understood.
};

/// `text` up to its first NUL, where every reader of an INI file stops.
[[nodiscard]] QStringView UpToNul(QStringView text);

/// The encoding of one INI file.
///
/// Lines of a UTF-16 file are decoded from and encoded to the form of utf16_units.h.
class IniEncoding
{
public:
    /// Recognises the encoding of a file by its bytes.
    IniEncoding(QByteArrayView file, CodePage codePage);

    [[nodiscard]] bool IsUtf16() const { return m_form == Form::Utf16Le; }

    /// The byte order mark that the file begins with; empty if it has none.
    [[nodiscard]] const QByteArray &Mark() const { return m_mark; }

    /// The text that a part of a line stands for.
    [[nodiscard]] QString Decoded(QByteArrayView stored) const;

    /// The form of `text` (up to its first NUL) in a line. Characters that the code page or the
    /// file's encoding lacks become "?", half a surrogate pair becomes U+FFFD first.
    [[nodiscard]] QByteArray Encoded(QStringView text) const;

private:
    enum class Form
    {
        Utf8,
        Windows1252,
        Utf16Le
    };

    [[nodiscard]] QString InCodePage(QStringView text) const;

    CodePage m_codePage;
    Form m_form = Form::Utf8;
    QByteArray m_mark = {};
};
