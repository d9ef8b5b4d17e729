#include "desktop/panels.h"

#include "support/wait_until.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString kWatcher = u"org.kde.StatusNotifierWatcher"_s;
const QString kItem = u"org.kde.StatusNotifierItem"_s;

/// What a tool tip consists of on the bus; its pictures are skipped.
struct ToolTipText
{
    QString title = {};
};

const QDBusArgument &operator>>(const QDBusArgument &argument, ToolTipText &text)
{
    QString iconName;
    QString subtitle;
    argument.beginStructure();
    argument >> iconName;
    argument.beginArray(); // of pictures
    while (!argument.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray bytes;
        argument.beginStructure();
        argument >> width >> height >> bytes;
        argument.endStructure();
    }
    argument.endArray();
    argument >> text.title >> subtitle;
    argument.endStructure();
    return argument;
}

} // namespace

std::unique_ptr<Panel> Panel::Start(Kind kind, const Desktop &desktop)
{
    if (kind == Kind::Status)
        return std::make_unique<StatusPanel>(desktop);
    return std::make_unique<XPanel>(desktop);
}

StatusPanel::StatusPanel(const Desktop &desktop)
    : m_bus(desktop.bus.Connection())
    , m_watcher(std::make_unique<ChildProgram>(TAVRIN_STATUS_NOTIFIER_WATCHER, QStringList(),
                                               desktop.Environment()))
{
    if (m_watcher->FirstLine() != "ready")
        qWarning() << "no watcher:" << m_watcher->Errors();
}

StatusPanel::~StatusPanel()
{
    m_watcher.reset();
    const bool isGone =
        WaitUntil([this] { return !m_bus.interface()->isServiceRegistered(kWatcher).value(); });
    if (!isGone)
        qWarning() << "the watcher stays on the bus";
}

QVariant StatusPanel::Property(const QString &service, const QString &path,
                               const QString &interface, const QString &name) const
{
    auto call = QDBusMessage::createMethodCall(service, path, u"org.freedesktop.DBus.Properties"_s,
                                               u"Get"_s);
    call.setArguments({interface, name});
    return m_bus.call(call).arguments().value(0).value<QDBusVariant>().variant();
}

QStringList StatusPanel::Icons() const
{
    return Property(kWatcher, u"/StatusNotifierWatcher"_s, kWatcher,
                    u"RegisteredStatusNotifierItems"_s)
        .toStringList();
}

QString StatusPanel::ToolTip() const
{
    const QStringList icons = Icons();
    if (icons.isEmpty())
        return {};
    const QVariant tip = Property(icons.first(), u"/StatusNotifierItem"_s, kItem, u"ToolTip"_s);
    return tip.canConvert<QDBusArgument>() ? qdbus_cast<ToolTipText>(tip).title : QString();
}

void StatusPanel::Click(Screen::Button button) const
{
    const QString method = button == Screen::Button::Left ? u"Activate"_s : u"ContextMenu"_s;
    // A program that finds its icon missing adds it again, so the one in the list may be gone.
    const auto isTaken = [&] {
        const QStringList icons = Icons();
        if (icons.isEmpty())
            return false;
        auto call =
            QDBusMessage::createMethodCall(icons.first(), u"/StatusNotifierItem"_s, kItem, method);
        call.setArguments({0, 0}); // where on the screen
        return m_bus.call(call).type() == QDBusMessage::ReplyMessage;
    };
    if (!WaitUntil(isTaken))
        qWarning() << "no icon takes" << method;
}

XPanel::XPanel(const Desktop &desktop)
    : m_screen(desktop.screen)
    , m_trayer(
          u"trayer"_s,
          {"--edge", "bottom", "--widthtype", "request", "--height", "26", "--heighttype", "pixel"},
          desktop.Environment())
{}

std::optional<QPoint> XPanel::Icon() const
{
    const QByteArray tree = m_screen.Ask(u"xwininfo"_s, {"-name", "panel", "-tree"});
    // The panel's own windows have no class.
    static const QRegularExpression kIcon(
        u"(0x[0-9a-f]+) .*\\(\"\\S+\" \"\\S+\"\\)  (\\d+)x(\\d+)\\+\\d+\\+\\d+  \\+(\\d+)\\+(\\d+)"_s);
    for (const auto &icon : kIcon.globalMatch(QString::fromUtf8(tree))) {
        const QByteArray facts = m_screen.Ask(u"xwininfo"_s, {"-id", icon.captured(1)});
        if (facts.contains("Map State: IsViewable")) {
            return QRect(icon.captured(4).toInt(), icon.captured(5).toInt(),
                         icon.captured(2).toInt(), icon.captured(3).toInt())
                .center();
        }
    }
    return std::nullopt;
}

void XPanel::Click(Screen::Button button) const
{
    std::optional<QPoint> icon;
    if (WaitUntil([&] { return (icon = Icon()).has_value(); }))
        m_screen.Click(*icon, button);
    else
        qWarning() << "no icon to be clicked";
}
