#include "desktop/window_manager.h"

#include "support/wait_until.h"

#include <QFile>
#include <QRect>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// One button at either end of the title bar, so that a test can hit it. Keys and mouse do what
/// they do by default.
constexpr char kManagerConfiguration[] = R"(<openbox_config xmlns="http://openbox.org/3.4/rc">
<theme><name>Clearlooks</name><titleLayout>ILC</titleLayout><animateIconify>no</animateIconify></theme>
</openbox_config>
)";

constexpr auto kStartPatience = 20s;

/// The first thing that a pattern's group finds in what a tool printed.
QString Cut(const QByteArray &printed, const QString &pattern)
{
    static const auto kOptions = QRegularExpression::MultilineOption;
    return QRegularExpression(pattern, kOptions).match(QString::fromUtf8(printed)).captured(1);
}

} // namespace

WindowManager::WindowManager(const Screen &screen, const QString &folder) : m_screen(screen)
{
    const QString configuration = folder + "/rc.xml";
    QFile file(configuration);
    if (!file.open(QIODevice::WriteOnly) || file.write(kManagerConfiguration) < 0)
        return;
    file.close();
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", screen.Name());
    environment.insert("HOME", folder);
    m_manager = std::make_unique<ChildProgram>(
        u"openbox"_s, QStringList{"--config-file", configuration}, environment);
    m_isThere = WaitUntil([this] { return IsAnnounced(); }, kStartPatience) && IsAwake();
}

bool WindowManager::IsAnnounced() const
{
    return m_screen.Ask(u"xprop"_s, {"-root", "_NET_SUPPORTING_WM_CHECK"}).contains("0x");
}

/// A window manager that has announced itself may still leave the first window alone until
/// something else happens. And the first key on a screen makes it grab the keyboard again, and keys
/// pass it by meanwhile. So a key that does nothing goes first, and then a request, until it is
/// carried out: what a test does comes after both.
bool WindowManager::IsAwake() const
{
    m_screen.Press(u"shift"_s);
    const auto hasOneDesktop = [this] {
        (void)m_screen.Ask(u"xdotool"_s, {"set_num_desktops", "1"});
        return m_screen.Ask(u"xdotool"_s, {"get_num_desktops"}).trimmed() == "1";
    };
    return WaitUntil(hasOneDesktop, kStartPatience);
}

QStringList WindowManager::RootWindows(const QString &property) const
{
    const QByteArray printed = m_screen.Ask(u"xprop"_s, {"-root", property});
    static const QRegularExpression kNumber(u"0x[1-9a-f][0-9a-f]*"_s);
    QStringList windows;
    for (const auto &match : kNumber.globalMatch(QString::fromUtf8(printed)))
        windows.append(match.captured());
    return windows;
}

QList<ListedWindow> WindowManager::Windows() const
{
    QList<ListedWindow> windows;
    for (const QString &id : RootWindows(u"_NET_CLIENT_LIST"_s)) {
        const QByteArray facts =
            m_screen.Ask(u"xprop"_s, {"-id", id, "_NET_WM_PID", "_NET_WM_NAME", "WM_STATE"});
        windows.append({.id = id,
                        .processId = Cut(facts, u"^_NET_WM_PID.* = (\\d+)$"_s).toLongLong(),
                        .title = Cut(facts, u"^_NET_WM_NAME.* = \"(.*)\"$"_s),
                        .isMinimised = facts.contains("window state: Iconic")});
    }
    return windows;
}

QString WindowManager::ActiveWindow() const
{
    return RootWindows(u"_NET_ACTIVE_WINDOW"_s).value(0);
}

QString WindowManager::TopWindow() const
{
    const QStringList stack = RootWindows(u"_NET_CLIENT_LIST_STACKING"_s);
    return stack.isEmpty() ? QString() : stack.last();
}

QPoint WindowManager::ClientCorner(const QString &window) const
{
    const QByteArray facts = m_screen.Ask(u"xwininfo"_s, {"-id", window});
    return {Cut(facts, u"Absolute upper-left X: +(-?\\d+)$"_s).toInt(),
            Cut(facts, u"Absolute upper-left Y: +(-?\\d+)$"_s).toInt()};
}

void WindowManager::ClickTitleBar(const QString &window, TitleButton button) const
{
    const QByteArray facts = m_screen.Ask(u"xwininfo"_s, {"-id", window});
    const int width = Cut(facts, u"Width: (\\d+)$"_s).toInt();
    const QByteArray frame = m_screen.Ask(u"xprop"_s, {"-id", window, "_NET_FRAME_EXTENTS"});
    const int titleHeight = Cut(frame, u"= \\d+, \\d+, (\\d+),"_s).toInt();
    // Both buttons are squares of about the title bar's height.
    const int inset = titleHeight / 2;
    const int x = button == TitleButton::Minimise ? inset : width - inset;
    m_screen.Click(ClientCorner(window) + QPoint(x, -inset));
}

void WindowManager::Activate(const QString &window) const
{
    (void)m_screen.Ask(u"xdotool"_s, {"windowactivate", window});
}
