#pragma once

#include "store/ini_file.h"

#include <QString>

#include <array>
#include <optional>

/// What CheckInterval may be.
inline constexpr std::array kCheckIntervalMinutes{15, 30, 60, 180};

/// What one session keeps between runs.
struct Settings
{
    bool IsFirstRun = false; ///< Loaded only; SaveSettings() does not look at it.
    bool MinimizeOnStartupEnabled = true;
    std::array<std::array<QString, 4>, 10> location =
        {}; ///< [profile][0..3]: location1..location4.
    qint16 currentWeatherProfile = 0;
    QString ForecastZone = {};
    QString ForecastState = {};
    std::array<bool, 4> ForecastSched = {true, true, true, true}; ///< 12 AM, 6 AM, 12 PM, 6 PM.
    QString HTTPPort = QStringLiteral("80");

    /// Minutes between two requests of the current weather, one of kCheckIntervalMinutes; nothing
    /// when the file has no such key or another text there. It is stored only if it is here, so
    /// that no file gets the key that had none.
    std::optional<int> CheckInterval = {};

    bool operator==(const Settings &) const = default;
};

/// The settings as loaded, and what was wrong with them.
struct LoadedSettings
{
    Settings settings = {};
    /// The text of CurrentProfile if it is not a number; the program cannot start with it.
    std::optional<QString> badCurrentProfile = {};
};

/// Reads the session's settings. The first run of a session writes FirstRun=False at once; nothing
/// else is written. A number that no profile index can be (beyond 16 bits) is loaded as 0.
[[nodiscard]] LoadedSettings LoadSettings(const IniPath &path);

/// The same from a file's image, and nothing is written.
[[nodiscard]] LoadedSettings ReadSettings(const PrivateProfile &file);

/// Applies the settings in a file's image. Those that it lacks are left unchanged, to the last
/// blank, and so is the current profile if its text is not a number.
/// @return that text; nothing if there is a number or no such key.
// A recovery file's text is of no use to anybody, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
std::optional<QString> ApplySettings(Settings &settings, const PrivateProfile &file);

/// Puts all settings except FirstRun into a file's image; a CheckInterval only if there is one.
void PutSettings(PrivateProfile &file, const Settings &settings);

/// Writes all settings except FirstRun at once.
/// @return false if the file could not be stored.
// The end of the program goes on either way, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
bool SaveSettings(const IniPath &path, const Settings &settings);
