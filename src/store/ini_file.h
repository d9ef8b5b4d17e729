#pragma once

#include "store/ini_value.h"
#include "store/private_profile.h"
#include "store/write_error.h"

#include <QString>
#include <QStringView>

/// Where an INI file is and how its bytes are read.
struct IniPath
{
    QString path = {}; ///< Full path; folders are never created.
    CodePage codePage = CodePage::Utf8;
};

/// One INI file between being read and being stored again: the values that one routine reads and
/// writes. Nothing reaches the disk before Commit(), and then all of it at once, so that no other
/// program ever reads a half-written file.
class IniFile
{
public:
    /// Reads the file. One that is missing, a folder or unreadable counts as empty; one that cannot
    /// be read just now is not replaced either, because its contents would be lost.
    explicit IniFile(IniPath path);

    [[nodiscard]] const PrivateProfile &Profile() const { return m_profile; }
    [[nodiscard]] PrivateProfile &Profile() { return m_profile; }

    /// Replaces the file on the disk with the current values: temporary file, flush, rename. Mode
    /// and owner of an existing file survive.
    /// It does so even if nothing has changed, because the file's modification time shows that the
    /// program is alive.
    /// @return what went wrong, which is traced in one line; the old file is then complete and
    /// untouched.
    // The program's routines go on either way, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
    WriteError Commit() const;

private:
    IniPath m_path;
    PrivateProfile m_profile;
    bool m_readable = true;
};

// The values of a file, by the rules of ini_value.h.

[[nodiscard]] inline QString ReadIniValue(const IniFile &file, QStringView section, QStringView key,
                                          QStringView fallback = {})
{
    return ReadIniValue(file.Profile(), section, key, fallback);
}

inline void WriteIniValue(IniFile &file, QStringView section, QStringView key, QStringView value,
                          bool encode)
{
    WriteIniValue(file.Profile(), section, key, value, encode);
}
