#include "tray/minimize_to_tray.h"

#include "graph/frm_graphics.h"

MinimizeToTray::MinimizeToTray(TrayState &state, const QString &sessionId, bool &graphicsFormLoaded,
                               PanelIcon &panelIcon)
    : m_state(state)
    , m_sessionId(sessionId)
    , m_graphicsFormLoaded(graphicsFormLoaded)
    , m_panelIcon(panelIcon)
{}

MinimizeToTray::~MinimizeToTray() = default;

void MinimizeToTray::AddTrayIcon()
{
    if (m_graphics == nullptr)
        m_graphics = std::make_unique<frmGraphics>(m_graphicsFormLoaded);
    m_state.TrayFrame = 0;
    m_state.TrayIconData = {.picture = {}, .tip = TrayTip(m_sessionId)};
    m_panelIcon.Add(Image(m_state.TrayIconData.picture), m_state.TrayIconData.tip);
}

void MinimizeToTray::AnimateTrayIcon()
{
    const std::optional<TrayPicture> picture = PictureOfTick(m_state);
    if (picture && !Show(*picture)) {
        RemoveTrayIcon();
        AddTrayIcon();
        return;
    }
    EndTick(m_state);
}

bool MinimizeToTray::Show(const TrayPicture &picture)
{
    if (m_graphics == nullptr)
        return false; // no icon has been added yet
    if (picture == m_state.TrayIconData.picture)
        return m_panelIcon.IsShown();
    m_state.TrayIconData.picture = picture;
    return m_panelIcon.Modify(Image(picture));
}

void MinimizeToTray::StartIconAnimation()
{
    ::StartIconAnimation(m_state);
}

void MinimizeToTray::RemoveTrayIcon()
{
    m_panelIcon.Remove();
}

void MinimizeToTray::UnloadGraphics()
{
    m_graphics.reset();
}

const QIcon &MinimizeToTray::Image(const TrayPicture &picture) const
{
    const auto &images =
        picture.set == TraySet::Activity ? m_graphics->taskBarActiveIcon : m_graphics->taskBarIcon;
    return images[size_t(picture.index)];
}
