#pragma once

#include "station/program_files.h"

#include <QString>

/// The program's folder and what is wrong with it.
struct ProgramFolder
{
    QString folder = {};  ///< Without trailing separator.
    QString problem = {}; ///< One line for the user; empty if the folder can be written.
};

/// The folder that the environment variable TAVRIN_WEATHER_FOLDER names, else the executable's. A
/// folder that is missing or cannot be written is reported, but used all the same: the program
/// never silently uses another one.
[[nodiscard]] ProgramFolder FindProgramFolder(const QString &executableFolder);

/// Removes half-written files that a killed copy of this session has left. Call it while no other
/// copy runs.
void RemoveLeftovers(const ProgramFiles &files);
