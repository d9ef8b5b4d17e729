#pragma once

#include "store/ini_file.h"

#include <QString>

#include <array>
#include <optional>

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

    bool operator==(const Settings &) const = default;
};

/// The settings as loaded, and what was wrong with them.
struct LoadedSettings
{
    Settings settings = {};
    /// The text of CurrentProfile when it is no number; the program cannot start with it.
    std::optional<QString> badCurrentProfile = {};
};

/// Reads the session's settings. The first run of a session writes FirstRun=False at once; nothing
/// else is written. A number that no profile index can be (beyond 16 bits) is loaded as 0.
[[nodiscard]] LoadedSettings LoadSettings(const IniPath &path);

/// Takes over what a file's image holds. What it lacks stays as it is, to the last blank, and so
/// does the current profile when its text is no number.
/// @return that text; nothing when there is a number or no such key.
// A recovery file's text is of no use to anybody, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
std::optional<QString> TakeSettings(Settings &settings, const PrivateProfile &file);

/// Puts all settings but FirstRun into a file's image.
void PutSettings(PrivateProfile &file, const Settings &settings);

/// Writes all settings but FirstRun in one go.
/// @return false when the file could not be stored.
// The end of the program goes on either way, hence: NOLINTNEXTLINE(modernize-use-nodiscard)
bool SaveSettings(const IniPath &path, const Settings &settings);
