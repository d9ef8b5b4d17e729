#include "tray/desktop_panel.h"
#include "tray/notifier_host.h"
#include "tray/x_tray.h"

#include <QSystemTrayIcon>

namespace {

/// The kinds of panels on a Unix desktop: the one reached over D-Bus, and the X11 tray.
class UnixPanel final : public DesktopPanel
{
public:
    UnixPanel()
    {
        connect(&m_notifierHost, &NotifierHost::Changed, this, &DesktopPanel::Changed);
        connect(&m_xTray, &XTray::Changed, this, &DesktopPanel::Changed);
    }

    [[nodiscard]] bool IsThere() const override
    {
        switch (m_kind) {
        case Kind::NotSettled:
            return m_notifierHost.IsThere() || m_xTray.IsThere();
        case Kind::NotifierHost:
            return m_notifierHost.IsThere();
        case Kind::XTray:
            break;
        }
        return m_xTray.IsThere();
    }

    void Settle() override
    {
        if (m_kind != Kind::NotSettled)
            return;
        // The toolkit prefers D-Bus. If it does not use D-Bus (without any window system), it says
        // that there is no tray, and there is none on X11 either.
        const bool onBus = m_notifierHost.IsThere() && QSystemTrayIcon::isSystemTrayAvailable();
        m_kind = onBus ? Kind::NotifierHost : Kind::XTray;
    }

private:
    enum class Kind
    {
        NotSettled,
        NotifierHost,
        XTray
    };

    Kind m_kind = Kind::NotSettled;
    NotifierHost m_notifierHost;
    XTray m_xTray;
};

} // namespace

std::unique_ptr<DesktopPanel> WatchDesktopPanel()
{
    return std::make_unique<UnixPanel>();
}
