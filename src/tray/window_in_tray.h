#pragma once

#include "tray/minimize_rules.h"
#include "tray/minimize_to_tray.h"
#include "tray/panel_icon.h"
#include "tray/tray_animation.h"

#include <QTimer>
#include <QWidget>

/// A window that hides behind an icon in the panel when it is minimised, and comes back from there.
/// The decisions are functions in minimize_rules.h.
///
/// While no panel shows the icon, the window minimises as usual and stays in the task bar.
class WindowInTray : public QWidget
{
    Q_OBJECT

public:
    /// Runs at every change of the window's size or state, and does what follows from it.
    void Form_Resize();

    /// Runs when the mouse moves over the window, with its position in twips, and when the icon is
    /// clicked: then `x` is the message of the click times the twips of a pixel. Such a message
    /// shows the window.
    void Form_MouseMove(int button, int shift, double x, double y);

    /// Shows the window as usual and in front of the others, wherever it was.
    void ShowWindow();

public Q_SLOTS:
    void tmrIconUpdate_Timer(); ///< One tick of 100 ms of the icon's animation.
    void tmrPanelGone_Timer(); ///< 10 s after the panel went: a hidden window goes to the task bar.

protected:
    /// All arguments outlive the window.
    /// @param sessionId          part of the icon's tip.
    /// @param GraphicsFormLoaded whether the form with the icon's images is loaded.
    WindowInTray(TrayState &tray, const QString &sessionId, bool &GraphicsFormLoaded,
                 PanelIcon &panelIcon);

    void LoadTray();           ///< Adds the icon and starts its animation.
    void StartMinimized();     ///< In the tray if there is one, else in the task bar.
    void StartIconAnimation(); ///< Plays the activity set once, from the next tick on.
    void UnloadTray();         ///< Removes icon and images, stops both timers.

    void changeEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] WindowState State() const;
    void TraceResize() const;
    void PassClick(Qt::MouseButton button);
    void PlayTicks();
    void RestartAnimation();
    void WakeIcon();
    void WaitForTicks(int ticks);
    void RenewHiddenWindow();
    void BringDialogsBack();

    TrayState &m_tray;
    bool &m_graphicsFormLoaded;
    PanelIcon &m_panelIcon;
    MinimizeToTray m_minimizeToTray;

    bool m_beginsMinimized = false; ///< The window manager was told so of this very window.

    int m_ticks = 1; ///< How many ticks tmrIconUpdate stands for this time.

    QTimer tmrIconUpdate; ///< A tick of 100 ms moves the icon; those that do not are slept through.
    QTimer tmrPanelGone;  ///< 10 s, once: how long a hidden window waits for another panel.
};
