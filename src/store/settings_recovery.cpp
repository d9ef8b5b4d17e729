#include "store/settings_recovery.h"

#include "core/trace.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

SettingsRecovery::SettingsRecovery(IniPath path) : m_path(std::move(path)) {}

void SettingsRecovery::Apply(Settings &settings)
{
    if (!QFileInfo(m_path.path).isFile())
        return;
    ApplySettings(settings, IniFile(m_path).Profile());
    Trace(u"Settings recovered from ", m_path.path);
}

void SettingsRecovery::Keep(const Settings &settings)
{
    const bool changed = m_kept && *m_kept != settings;
    m_kept = settings; // even if storing fails: the next change tries again, not every second
    if (changed)
        SaveSettings(m_path, settings);
}

void SettingsRecovery::Discard(const Settings &stored)
{
    m_kept = stored;
    if (QFileInfo(m_path.path).isFile() && !QFile::remove(m_path.path))
        Trace(u"Unable to remove ", m_path.path);
}
