#pragma once

#include "store/ini_file.h"

#include <QString>

/// The names of the files of one session. All lie in the program's folder.
struct ProgramFiles
{
    QString folder = {}; ///< Without trailing separator.
    CodePage codePage = CodePage::Utf8;
    QString SessionId = {}; ///< "" or one character "2".."9".

    [[nodiscard]] IniPath Settings() const;
    [[nodiscard]] IniPath Recovery() const; ///< Only between a change of a setting and the end.
    [[nodiscard]] IniPath MinMax() const;
    [[nodiscard]] IniPath Weather() const;
    [[nodiscard]] IniPath Forecast() const;
    [[nodiscard]] IniPath Profiles() const; ///< Shared by all sessions.
    [[nodiscard]] QString Lock() const;     ///< While a copy of the session runs.
};
