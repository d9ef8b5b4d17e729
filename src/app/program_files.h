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

    /// Takes away what a copy of this session that was killed has left of half-written files. To be
    /// called while no other copy runs.
    void RemoveLeftovers() const;
};

/// The program's folder and what is wrong with it.
struct ProgramFolder
{
    QString folder = {};  ///< Without trailing separator.
    QString problem = {}; ///< One line for the user, empty when the folder can be written.
};

/// The folder that the environment variable TAVRIN_WEATHER_FOLDER names, else that of the
/// executable. A folder that is missing or cannot be written is reported and used all the same: the
/// program never takes another one silently.
[[nodiscard]] ProgramFolder FindProgramFolder(const QString &executableFolder);
