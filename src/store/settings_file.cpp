#include "store/settings_file.h"

#include "core/number.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kSettings = u"Settings";
constexpr QStringView kTrue = u"True";
constexpr QStringView kFalse = u"False";

QString ProfileSection(std::size_t index)
{
    return u"Profile"_s + QString::number(index);
}

QString LocationKey(std::size_t index)
{
    return u"location"_s + QString::number(index + 1);
}

QString ScheduleKey(std::size_t index)
{
    return u"ForecastSched"_s + QString::number(index);
}

QString Read(const IniFile &file, QStringView key, QStringView fallback)
{
    return ReadIniValue(file, kSettings, key, fallback);
}

void Write(IniFile &file, QStringView key, QStringView value)
{
    WriteIniValue(file, kSettings, key, value, true);
}

/// Whether this run is the session's first. It is so only once: the file says so from here on, even
/// if the program is not ended in an orderly way.
bool TakeFirstRun(IniFile &file)
{
    if (Read(file, u"FirstRun", kTrue) != kTrue)
        return false;
    Write(file, u"FirstRun", kFalse);
    file.Commit();
    return true;
}

QString BoxText(bool checked)
{
    return (checked ? kTrue : kFalse).toString();
}

/// Reads all settings but FirstRun; what the file lacks stays as it is.
/// @return the text of CurrentProfile when it is no number.
std::optional<QString> ReadAll(const IniFile &file, Settings &settings)
{
    settings.MinimizeOnStartupEnabled =
        Read(file, u"MinimizeOnStartup", BoxText(settings.MinimizeOnStartupEnabled)) == kTrue;
    for (std::size_t i = 0; i < settings.location.size(); ++i) {
        for (std::size_t n = 0; n < settings.location[i].size(); ++n) {
            QString &location = settings.location[i][n];
            location = ReadIniValue(file, ProfileSection(i), LocationKey(n), location);
        }
    }
    settings.ForecastZone = Read(file, u"ForecastZone", settings.ForecastZone);
    settings.ForecastState = Read(file, u"ForecastState", settings.ForecastState);
    // Unlike the flag above, a box is on for every text but this one.
    for (std::size_t n = 0; n < settings.ForecastSched.size(); ++n) {
        bool &checked = settings.ForecastSched[n];
        checked = Read(file, ScheduleKey(n), BoxText(checked)) != kFalse;
    }
    settings.HTTPPort = Read(file, u"HTTPPort", settings.HTTPPort);

    const QString profile =
        Read(file, u"CurrentProfile", QString::number(settings.currentWeatherProfile));
    const auto number = WholeTextNumber(profile);
    if (!number)
        return profile;
    settings.currentWeatherProfile = ToInt16(*number).value_or(0);
    return std::nullopt;
}

} // namespace

LoadedSettings LoadSettings(const IniPath &path)
{
    LoadedSettings loaded;
    IniFile file(path);
    loaded.settings.IsFirstRun = TakeFirstRun(file);
    loaded.badCurrentProfile = ReadAll(file, loaded.settings);
    return loaded;
}

void TakeSettings(Settings &settings, const IniPath &path)
{
    ReadAll(IniFile(path), settings);
}

bool SaveSettings(const IniPath &path, const Settings &settings)
{
    IniFile file(path);

    for (std::size_t i = 0; i < settings.location.size(); ++i) {
        for (std::size_t n = 0; n < settings.location[i].size(); ++n)
            WriteIniValue(file, ProfileSection(i), LocationKey(n), settings.location[i][n], true);
    }
    Write(file, u"ForecastZone", settings.ForecastZone);
    Write(file, u"ForecastState", settings.ForecastState);
    for (std::size_t n = 0; n < settings.ForecastSched.size(); ++n)
        Write(file, ScheduleKey(n), BoxText(settings.ForecastSched[n]));
    Write(file, u"CurrentProfile", QString::number(settings.currentWeatherProfile));
    Write(file, u"MinimizeOnStartup", BoxText(settings.MinimizeOnStartupEnabled));
    Write(file, u"HTTPPort", settings.HTTPPort);

    return file.Commit();
}
