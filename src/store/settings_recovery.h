#pragma once

#include "store/settings_file.h"

#include <optional>

/// Keeps what has been changed since the settings were stored last, for a start behind a power cut:
/// the settings file itself is written at the end of a run only.
class SettingsRecovery
{
public:
    /// @param path the recovery file; it has the form of the settings file.
    explicit SettingsRecovery(IniPath path);

    /// Takes over what a run that did not come to its end has left, if there is any.
    void Apply(Settings &settings);

    /// To be called with the current settings at least once a second: stores them when they differ
    /// from those of the call before. The first call only notes them.
    void Keep(const Settings &settings);

    /// The settings have been stored in their own file: nothing is left to be recovered.
    void Discard() const;

private:
    IniPath m_path;
    std::optional<Settings> m_kept; ///< As the settings file or the recovery file has them.
};
