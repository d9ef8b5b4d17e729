#include "tray/desktop_panel.h"

#include <QSystemTrayIcon>

namespace {

/// For a system with a built-in panel, where the toolkit puts the icon back by itself.
class NativePanel final : public DesktopPanel
{
public:
    [[nodiscard]] bool IsThere() const override { return m_isThere; }
    void Settle() override {}

private:
    bool m_isThere = QSystemTrayIcon::isSystemTrayAvailable();
};

} // namespace

std::unique_ptr<DesktopPanel> WatchDesktopPanel()
{
    return std::make_unique<NativePanel>();
}
