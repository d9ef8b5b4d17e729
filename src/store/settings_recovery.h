#pragma once

#include "store/settings_file.h"

#include <optional>

/// Keeps what has changed since the settings were last stored, for a start after a power cut,
/// because the settings file itself is written only at the end of a run.
class SettingsRecovery
{
public:
    /// @param path the recovery file; it has the form of the settings file.
    explicit SettingsRecovery(IniPath path);

    /// Takes over what an interrupted run has left, if anything.
    void Apply(Settings &settings);

    /// Stores the settings if they differ from those of the previous call; the first call only
    /// notes them.
    void Keep(const Settings &settings);

    /// Call it once these settings are stored in their own file: nothing is left to recover.
    void Discard(const Settings &stored);

private:
    IniPath m_path;
    std::optional<Settings> m_kept; ///< As the settings file or the recovery file has them.
};
