#pragma once

#include "tray/panel_icon.h"
#include "tray/tray_animation.h"

#include <memory>

class frmGraphics;

/// Keeps the program's icon in the panel and animates it.
class MinimizeToTray
{
public:
    /// All references must outlive the object.
    /// @param sessionId part of the icon's tip.
    /// @param graphicsFormLoaded set while the form with the images is loaded.
    MinimizeToTray(TrayState &state, const QString &sessionId, bool &graphicsFormLoaded,
                   PanelIcon &panelIcon);
    ~MinimizeToTray();
    Q_DISABLE_COPY_MOVE(MinimizeToTray)

    /// Adds the icon with the first image of the idle set. The first call loads the images.
    void AddTrayIcon();

    /// One step of the animation, at each tick. The panel is told only if the picture changes. An
    /// icon that the panel has lost is removed and added again, and the step is not taken.
    void AnimateTrayIcon();

    void StartIconAnimation(); ///< Lets the activity set play once.
    void RemoveTrayIcon();     ///< Does nothing if the icon is not there.
    void UnloadGraphics();     ///< Releases the images.

private:
    [[nodiscard]] bool Show(const TrayPicture &picture);
    [[nodiscard]] const QIcon &Image(const TrayPicture &picture) const;

    TrayState &m_state;
    const QString &m_sessionId;
    bool &m_graphicsFormLoaded;
    PanelIcon &m_panelIcon;
    std::unique_ptr<frmGraphics> m_graphics; ///< Null: not loaded.
};
