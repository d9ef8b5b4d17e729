#include "tray/system_panel_icon.h"

#include <utility>

SystemPanelIcon::SystemPanelIcon() : m_panel(WatchDesktopPanel())
{
    m_isPanelThere = m_panel->IsThere();
    connect(m_panel.get(), &DesktopPanel::Changed, this, &SystemPanelIcon::LookForPanel);
}

bool SystemPanelIcon::IsShown() const
{
    return m_isAdded && m_isPanelThere;
}

void SystemPanelIcon::Add(const QIcon &icon, const QString &tip)
{
    if (!m_isPanelThere)
        return; // when a panel appears, the next picture finds the icon missing
    if (!m_icon) {
        m_panel->Settle();
        m_icon.emplace();
        connect(&*m_icon, &QSystemTrayIcon::activated, this, &SystemPanelIcon::PassClick);
        LookForPanel(); // of the kind that has been chosen
    }
    m_icon->setIcon(icon);
    m_icon->setToolTip(tip);
    m_icon->show();
    m_isAdded = true;
}

bool SystemPanelIcon::Modify(const QIcon &icon)
{
    if (!IsShown())
        return false;
    m_icon->setIcon(icon);
    return true;
}

void SystemPanelIcon::Remove()
{
    if (std::exchange(m_isAdded, false))
        m_icon->hide();
}

void SystemPanelIcon::LookForPanel()
{
    const bool isThere = m_panel->IsThere();
    if (std::exchange(m_isPanelThere, isThere) == isThere)
        return;
    if (isThere) {
        Q_EMIT PanelCame();
        return;
    }
    // Otherwise the toolkit would put it into the next panel before the program knows of that one.
    Remove();
    Q_EMIT PanelWent();
}

void SystemPanelIcon::PassClick(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger)
        Q_EMIT Clicked(Qt::LeftButton);
    else if (reason == QSystemTrayIcon::Context)
        Q_EMIT Clicked(Qt::RightButton);
}
