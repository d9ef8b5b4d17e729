#include "tray/window_in_tray.h"

#include "core/trace.h"
#include "core/twips.h"

#include <QMouseEvent>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kIconUpdateInterval = 100ms;
constexpr auto kPatienceWithoutPanel = 10s;

/// The keys held down with the mouse: 1 Shift, 2 Ctrl, 4 Alt.
int ShiftOf(Qt::KeyboardModifiers modifiers)
{
    return int(modifiers.testFlag(Qt::ShiftModifier))
         + 2 * int(modifiers.testFlag(Qt::ControlModifier))
         + 4 * int(modifiers.testFlag(Qt::AltModifier));
}

} // namespace

WindowInTray::WindowInTray(TrayState &tray, const QString &sessionId, bool &GraphicsFormLoaded,
                           PanelIcon &panelIcon)
    : QWidget(nullptr, Qt::Window | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint)
    , m_tray(tray)
    , m_graphicsFormLoaded(GraphicsFormLoaded)
    , m_panelIcon(panelIcon)
    , m_minimizeToTray(tray, sessionId, GraphicsFormLoaded, panelIcon)
    , tmrIconUpdate(this)
    , tmrPanelGone(this)
{
    setMouseTracking(true);
    tmrIconUpdate.setObjectName(u"tmrIconUpdate"_s);
    tmrPanelGone.setObjectName(u"tmrPanelGone"_s);
    tmrPanelGone.setSingleShot(true);
    tmrPanelGone.setInterval(kPatienceWithoutPanel);
    connect(&tmrIconUpdate, &QTimer::timeout, this, &WindowInTray::PlayTicks);
    connect(&tmrPanelGone, &QTimer::timeout, this, &WindowInTray::tmrPanelGone_Timer);
    connect(&m_panelIcon, &PanelIcon::Clicked, this, &WindowInTray::PassClick);
    connect(&m_panelIcon, &PanelIcon::PanelWent, &tmrPanelGone, qOverload<>(&QTimer::start));
    connect(&m_panelIcon, &PanelIcon::PanelCame, &tmrPanelGone, &QTimer::stop);
    connect(&m_panelIcon, &PanelIcon::PanelCame, this, &WindowInTray::RestartAnimation);
}

void WindowInTray::LoadTray()
{
    m_minimizeToTray.AddTrayIcon();
    WaitForTicks(1);
}

void WindowInTray::UnloadTray()
{
    tmrIconUpdate.stop(); // or its next tick would add the icon again
    tmrPanelGone.stop();
    m_minimizeToTray.RemoveTrayIcon();
    if (m_graphicsFormLoaded)
        m_minimizeToTray.UnloadGraphics();
}

void WindowInTray::StartIconAnimation()
{
    m_minimizeToTray.StartIconAnimation();
    WakeIcon();
}

void WindowInTray::StartMinimized()
{
    // Not showMinimized(): the resize event that comes with a first showing would bring the window
    // back.
    setWindowState(windowState() | Qt::WindowMinimized);
    m_beginsMinimized = true;
    if (!m_tray.IsMinimizedToTray)
        show();
}

void WindowInTray::ShowWindow()
{
    m_tray.IsMinimizedToTray = false;
    RenewHiddenWindow();
    setWindowState(Qt::WindowNoState);
    show();
    raise();
    activateWindow();
    BringDialogsBack();
}

// Window managers minimise dialogs with their window, but do not bring them back with one that has
// been hidden.
void WindowInTray::BringDialogsBack()
{
    for (QWidget *child : findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (child->isWindow() && child->isMinimized()) {
            child->setWindowState(Qt::WindowNoState);
            child->activateWindow();
        }
    }
}

// A window that the program has minimised tells the window manager that it begins minimised. That
// stands for good, and some window managers go by it at every showing: the window would vanish
// again. So a hidden window comes back as a new one.
void WindowInTray::RenewHiddenWindow()
{
    if (!isHidden() || !std::exchange(m_beginsMinimized, false))
        return;
    destroy(true, false); // windows that belong to it stay
    overrideWindowState(Qt::WindowNoState);
}

// Most of the time the icon rests. To wake up ten times a second for that would be most of what
// the idle program costs.
void WindowInTray::PlayTicks()
{
    for (int i = 0; i < m_ticks; ++i)
        tmrIconUpdate_Timer();
    WaitForTicks(1 + QuietTicks(m_tray));
}

// The first picture of the set finds the icon missing; one that rests would look for it seconds
// later.
void WindowInTray::RestartAnimation()
{
    m_tray.TrayFrame = 0;
    WakeIcon();
}

void WindowInTray::WakeIcon()
{
    if (m_ticks > 1 && tmrIconUpdate.isActive())
        WaitForTicks(1);
}

void WindowInTray::WaitForTicks(int ticks)
{
    m_ticks = ticks;
    tmrIconUpdate.start(ticks * kIconUpdateInterval);
}

void WindowInTray::tmrIconUpdate_Timer()
{
    m_minimizeToTray.AnimateTrayIcon();
}

// The way back through the icon is gone for longer than a panel takes to restart.
void WindowInTray::tmrPanelGone_Timer()
{
    if (!isHidden() || m_panelIcon.IsShown())
        return;
    m_tray.IsMinimizedToTray = false;
    RenewHiddenWindow();
    setWindowState(Qt::WindowNoState);
    show(); // first, or it would come up in its normal state
    setWindowState(Qt::WindowMinimized);
    m_beginsMinimized = true;
}

void WindowInTray::PassClick(Qt::MouseButton button)
{
    const int message = button == Qt::LeftButton ? kLeftButtonDown : kRightButtonUp;
    Form_MouseMove(0, 0, message * kTwipsPerPixel, 0);
}

void WindowInTray::Form_MouseMove(int /*button*/, int /*shift*/, double x, double /*y*/)
{
    m_tray.IsMinimizedToTray = false;
    // A real position over the window that happens to be the pixel of a message counts as well.
    if (IsRestoreMessage(x))
        ShowWindow();
}

void WindowInTray::Form_Resize()
{
    TraceResize();
    switch (StepOfResize(State(), m_tray.IsMinimizedToTray, m_panelIcon.IsShown())) {
    case ResizeStep::Nothing:
        break;
    case ResizeStep::HideInTray:
        m_tray.IsMinimizedToTray = true;
        hide();
        break;
    case ResizeStep::Restore:
        ShowWindow();
        break;
    }
    TraceResize();
}

void WindowInTray::TraceResize() const
{
    // The second label follows the number without a blank.
    Trace(u"Form_Resize WindowState = ", int(State()), u"IsMinimizedToTray = ",
          m_tray.IsMinimizedToTray ? u"True" : u"False");
}

WindowState WindowInTray::State() const
{
    if (isMinimized())
        return WindowState::Minimized;
    return isMaximized() || isFullScreen() ? WindowState::Maximized : WindowState::Normal;
}

void WindowInTray::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    // Some window managers give a window that has just been hidden the normal state. Nobody asked
    // for it, and it must not bring the window back.
    if (event->spontaneous() && isHidden())
        return;
    Form_Resize();
}

void WindowInTray::mouseMoveEvent(QMouseEvent *event)
{
    QWidget::mouseMoveEvent(event);
    const QPointF at = event->position() * kTwipsPerPixel;
    Form_MouseMove(int(event->buttons()), ShiftOf(event->modifiers()), at.x(), at.y());
}

void WindowInTray::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Form_Resize();
}
