#pragma once

#include "app/program_state.h"
#include "tray/minimize_rules.h"
#include "tray/minimize_to_tray.h"

#include <QTimer>
#include <QWidget>

/// The main window's frame on the desktop: what is left of it when it is minimised, and how it
/// comes back. What there is to decide is decided in minimize_rules.h.
///
/// Minimised, the window hides, and only the icon in the panel remains. While there is no such
/// icon, minimising is the desktop's own: the window stays in the task bar.
class frmMainTray : public QWidget
{
    Q_OBJECT

public:
    /// Runs at every change of the window's size or state, and does what follows from it.
    void Form_Resize();

    /// Takes a move of the mouse in twips, and a click on the icon in the same form: the message of
    /// the click stands in the place of the pixel.
    void Form_MouseMove(int button, int shift, double x, double y);

    /// Shows the window as usual and in front of the others, wherever it was.
    void ShowWindow();

public Q_SLOTS:
    void tmrIconUpdate_Timer();
    void tmrPanelGone_Timer();

protected:
    frmMainTray(ProgramState &state, PanelIcon &panelIcon);

    void LoadTray();
    void StartMinimized(); ///< In the tray if there is one, else in the task bar.
    void StartIconAnimation();
    void UnloadTray(); ///< Icon, images and timers.

    void changeEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] WindowState State() const;
    void TraceResize() const;
    void TakeClick(Qt::MouseButton button);
    void TakeTicks();
    void TakePanel();
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
