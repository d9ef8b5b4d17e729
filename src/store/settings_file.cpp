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

std::optional<QString> Find(const PrivateProfile &file, QStringView key)
{
    return FindIniValue(file, kSettings, key);
}

/// Sets `text` to the key's value; leaves it unchanged if the file lacks the key.
void ApplyText(QString &text, const PrivateProfile &file, QStringView section, QStringView key)
{
    if (std::optional<QString> found = FindIniValue(file, section, key))
        text = *std::move(found);
}

void Write(PrivateProfile &file, QStringView key, QStringView value)
{
    WriteIniValue(file, kSettings, key, value, true);
}

/// The minutes, if the key has one of its texts; anything else counts as no key.
std::optional<int> CheckIntervalOf(const PrivateProfile &file)
{
    const std::optional<QString> text = Find(file, u"CheckInterval");
    for (const int minutes : kCheckIntervalMinutes) {
        if (text == QString::number(minutes))
            return minutes;
    }
    return std::nullopt;
}

QString BoxText(bool checked)
{
    return (checked ? kTrue : kFalse).toString();
}

} // namespace

std::optional<QString> ApplySettings(Settings &settings, const PrivateProfile &file)
{
    if (const auto box = Find(file, u"MinimizeOnStartup"))
        settings.MinimizeOnStartupEnabled = *box == kTrue;
    for (std::size_t i = 0; i < settings.location.size(); ++i) {
        for (std::size_t n = 0; n < settings.location[i].size(); ++n)
            ApplyText(settings.location[i][n], file, ProfileSection(i), LocationKey(n));
    }
    ApplyText(settings.ForecastZone, file, kSettings, u"ForecastZone");
    ApplyText(settings.ForecastState, file, kSettings, u"ForecastState");
    // Unlike the flag above, a box is on for every text but "False".
    for (std::size_t n = 0; n < settings.ForecastSched.size(); ++n) {
        if (const auto box = Find(file, ScheduleKey(n)))
            settings.ForecastSched[n] = *box != kFalse;
    }
    ApplyText(settings.HTTPPort, file, kSettings, u"HTTPPort");
    if (const auto minutes = CheckIntervalOf(file))
        settings.CheckInterval = minutes;

    std::optional<QString> profile = Find(file, u"CurrentProfile");
    if (!profile)
        return std::nullopt;
    const auto number = WholeTextNumber(*profile);
    if (!number)
        return profile;
    settings.currentWeatherProfile = ToInt16(*number).value_or(0);
    return std::nullopt;
}

LoadedSettings ReadSettings(const PrivateProfile &file)
{
    LoadedSettings loaded;
    loaded.settings.IsFirstRun = Find(file, u"FirstRun").value_or(kTrue.toString()) == kTrue;
    loaded.badCurrentProfile = ApplySettings(loaded.settings, file);
    return loaded;
}

LoadedSettings LoadSettings(const IniPath &path)
{
    IniFile file(path);
    LoadedSettings loaded = ReadSettings(file.Profile());
    if (loaded.settings.IsFirstRun) {
        // At once, so that the file says so even if the program does not exit cleanly.
        Write(file.Profile(), u"FirstRun", kFalse);
        file.Commit();
    }
    return loaded;
}

void PutSettings(PrivateProfile &file, const Settings &settings)
{
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
    if (settings.CheckInterval)
        Write(file, u"CheckInterval", QString::number(*settings.CheckInterval));
}

bool SaveSettings(const IniPath &path, const Settings &settings)
{
    IniFile file(path);
    PutSettings(file.Profile(), settings);
    return !file.Commit().IsError();
}
