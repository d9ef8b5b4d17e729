#include "start/program_folder.h"

#include "store/replaced_file.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

/// Absolute, with the platform's separators and none at the end.
QString FolderText(const QString &folder)
{
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(folder).absolutePath()));
}

/// Really creates a file: permission bits mean nothing to a superuser or on a read-only disk.
bool CanBeWritten(const QString &folder)
{
    QTemporaryFile probe(QDir(folder).filePath(u"TavrinWeatherXXXXXX.tmp"_s));
    return probe.open() && QFileInfo::exists(probe.fileName());
}

} // namespace

ProgramFolder FindProgramFolder(const QString &executableFolder)
{
    const QString named = qEnvironmentVariable("TAVRIN_WEATHER_FOLDER");
    ProgramFolder found;
    found.folder = FolderText(named.isEmpty() ? executableFolder : named);
    if (!named.isEmpty() && !QFileInfo(found.folder).isDir())
        found.problem = u"TAVRIN_WEATHER_FOLDER names no folder: "_s + named;
    else if (!CanBeWritten(found.folder))
        found.problem = u"The program folder cannot be written: "_s + found.folder;
    return found;
}

void RemoveLeftovers(const ProgramFiles &files)
{
    for (const IniPath &file :
         {files.Settings(), files.Recovery(), files.MinMax(), files.Weather(), files.Forecast()})
        RemoveLeftovers(file.path);
}
