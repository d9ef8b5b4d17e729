#include "station/program_files.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// The root folder of a drive or of the system already ends with the separator.
QString InFolder(const QString &folder, const QString &name)
{
    const QChar separator = QDir::separator();
    return folder.endsWith(separator) ? folder + name : folder + separator + name;
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
