#pragma once

#include "tray/desktop_panel.h"
#include "tray/panel_icon.h"

#include <QSystemTrayIcon>

#include <memory>
#include <optional>

/// The icon in the desktop's panel, of whichever kind and whenever it appears.
class SystemPanelIcon final : public PanelIcon
{
    Q_OBJECT

public:
    SystemPanelIcon();

    [[nodiscard]] bool IsShown() const override;
    void Add(const QIcon &icon, const QString &tip) override;
    [[nodiscard]] bool Modify(const QIcon &icon) override;
    void Remove() override;

private:
    void LookForPanel();
    void PassClick(QSystemTrayIcon::ActivationReason reason);

    std::unique_ptr<DesktopPanel> m_panel;
    bool m_isPanelThere = false;
    std::optional<QSystemTrayIcon> m_icon; ///< Created only once there is a panel for it.
    bool m_isAdded = false;                ///< Shown since the panel was there for it.
};
