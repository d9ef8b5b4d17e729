#pragma once

#include "station/program_files.h"

#include <QString>

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

/// Takes away what a copy of this session that was killed has left of half-written files. To be
/// called while no other copy runs.
void RemoveLeftovers(const ProgramFiles &files);
