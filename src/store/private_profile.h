#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringView>

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
    PrivateProfile(const QByteArray &bytes, CodePage codePage);

    /// The value of `key` in `section`, cut to 4095 characters.
    /// @return `fallback` without its trailing spaces, cut likewise, when there is no such key.
    [[nodiscard]] QString Value(QStringView section, QStringView key, QStringView fallback) const;

    /// Writes `value` as given (up to its first NUL): in place when the key is there, else behind
    /// the last key of its section, else in a new section at the end. Characters that the file's
    /// encoding lacks become "?".
    void SetValue(QStringView section, QStringView key, QStringView value);

    /// The file's bytes as they are to be stored.
    [[nodiscard]] QByteArray Bytes() const;

private:
    enum class Encoding
    {
        Utf8,
        Windows1252,
        Utf16Le
    };
    // private part to be completed with the implementation
};
