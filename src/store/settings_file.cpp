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

void LoadCurrentProfile(const IniFile &file, LoadedSettings &loaded)
{
    const QString text = Read(file, u"CurrentProfile", u"0");
    const auto number = WholeTextNumber(text);
    if (!number)
        loaded.badCurrentProfile = text;
    else
        loaded.settings.currentWeatherProfile = ToInt16(*number).value_or(0);
}

} // namespace

LoadedSettings LoadSettings(const IniPath &path)
{
    LoadedSettings loaded;
    Settings &settings = loaded.settings;
    IniFile file(path);

    settings.IsFirstRun = TakeFirstRun(file);
    settings.MinimizeOnStartupEnabled = Read(file, u"MinimizeOnStartup", kTrue) == kTrue;
    for (std::size_t i = 0; i < settings.location.size(); ++i) {
        for (std::size_t n = 0; n < settings.location[i].size(); ++n)
            settings.location[i][n] = ReadIniValue(file, ProfileSection(i), LocationKey(n));
    }
    LoadCurrentProfile(file, loaded);
    settings.ForecastZone = Read(file, u"ForecastZone", {});
    settings.ForecastState = Read(file, u"ForecastState", {});
    // Unlike the flag above, a box is on for every text but this one.
    for (std::size_t n = 0; n < settings.ForecastSched.size(); ++n)
        settings.ForecastSched[n] = Read(file, ScheduleKey(n), kTrue) != kFalse;
    settings.HTTPPort = Read(file, u"HTTPPort", u"80");
    return loaded;
}

void SaveSettings(const IniPath &path, const Settings &settings)
{
    IniFile file(path);

    for (std::size_t i = 0; i < settings.location.size(); ++i) {
        for (std::size_t n = 0; n < settings.location[i].size(); ++n)
            WriteIniValue(file, ProfileSection(i), LocationKey(n), settings.location[i][n], true);
    }
    Write(file, u"ForecastZone", settings.ForecastZone);
    Write(file, u"ForecastState", settings.ForecastState);
    for (std::size_t n = 0; n < settings.ForecastSched.size(); ++n)
        Write(file, ScheduleKey(n), settings.ForecastSched[n] ? kTrue : kFalse);
    Write(file, u"CurrentProfile", QString::number(settings.currentWeatherProfile));
    Write(file, u"MinimizeOnStartup", settings.MinimizeOnStartupEnabled ? kTrue : kFalse);
    Write(file, u"HTTPPort", settings.HTTPPort);

    file.Commit();
}
