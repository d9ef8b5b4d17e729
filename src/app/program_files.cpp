#include "app/program_files.h"

#include "store/replaced_file.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

/// The separator stands at the end of a drive's or the system's own root already.
QString InFolder(const QString &folder, const QString &name)
{
    const QChar separator = QDir::separator();
    return folder.endsWith(separator) ? folder + name : folder + separator + name;
}

/// Absolute, in the platform's writing, without trailing separator.
QString FolderText(const QString &folder)
{
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(folder).absolutePath()));
}

/// Really makes a file: permission bits say nothing to a superuser or on a read-only disk.
bool CanBeWritten(const QString &folder)
{
    QTemporaryFile probe(InFolder(folder, u"TavrinWeatherXXXXXX.tmp"_s));
    return probe.open() && QFileInfo::exists(probe.fileName());
}

} // namespace

IniPath ProgramFiles::Settings() const
{
    return {InFolder(folder, u"TavrinWeatherSettings"_s + SessionId + u".ini"_s), codePage};
}

IniPath ProgramFiles::Recovery() const
{
    return {InFolder(folder, u"TavrinWeatherRecovery"_s + SessionId + u".ini"_s), codePage};
}

IniPath ProgramFiles::MinMax() const
{
    return {InFolder(folder, u"TavrinWeatherMinMax"_s + SessionId + u".ini"_s), codePage};
}

IniPath ProgramFiles::Weather() const
{
    return {InFolder(folder, u"Weather"_s + SessionId + u".ini"_s), codePage};
}

IniPath ProgramFiles::Forecast() const
{
    return {InFolder(folder, u"Forecast"_s + SessionId + u".ini"_s), codePage};
}

IniPath ProgramFiles::Profiles() const
{
    return {InFolder(folder, u"TavrinWeatherProfiles.ini"_s), codePage};
}

QString ProgramFiles::Lock() const
{
    return InFolder(folder, u"TavrinWeatherUtility"_s + SessionId + u".lock"_s);
}

void ProgramFiles::RemoveLeftovers() const
{
    for (const IniPath &file : {Settings(), Recovery(), MinMax(), Weather(), Forecast()})
        ::RemoveLeftovers(file.path);
}

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
