#pragma once

#include "store/ini_file.h"

#include <QString>

/// The names of one session's files, all in the program's folder.
struct ProgramFiles
{
    QString folder = {}; ///< Without trailing separator.
    CodePage codePage = CodePage::Utf8;
    QString SessionId = {}; ///< "" or one character "2".."9".

    [[nodiscard]] IniPath Settings() const;
    [[nodiscard]] IniPath Recovery() const; ///< Only there from a change of a setting to the end.
    [[nodiscard]] IniPath MinMax() const;
    [[nodiscard]] IniPath Weather() const;
    [[nodiscard]] IniPath Forecast() const;
    [[nodiscard]] IniPath Profiles() const; ///< Shared by all sessions.
    [[nodiscard]] QString Lock() const;     ///< Only there while a copy of the session runs.
};
