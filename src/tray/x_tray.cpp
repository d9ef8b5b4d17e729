#include "tray/x_tray.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace {

/// The X server's answers are freed with free().
template <typename Reply>
using ReplyPointer = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
ReplyPointer<Reply> Own(Reply *reply)
{
    return {reply, &std::free};
}

xcb_atom_t Atom(xcb_connection_t *connection, const QByteArray &name)
{
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    const auto reply = Own(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// The screen that the display's name specifies, which the toolkit uses too.
int ScreenNumber()
{
    char *host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) != 0)
        std::free(host);
    return screen;
}

} // namespace

XTray::XTray()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    m_connection = x11 == nullptr ? nullptr : x11->connection();
    if (m_connection == nullptr) // without a window system the toolkit knows X11, but no display
        return;
    m_manager = Atom(m_connection, "MANAGER");
    m_selection = Atom(m_connection, "_NET_SYSTEM_TRAY_S" + QByteArray::number(ScreenNumber()));
    m_owner = FindOwner();
    qGuiApp->installNativeEventFilter(this);
}

/// The panel's window; the X server will announce when it is destroyed.
quint32 XTray::FindOwner() const
{
    const auto cookie = xcb_get_selection_owner(m_connection, m_selection);
    const auto reply = Own(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    if (!reply || reply->owner == XCB_WINDOW_NONE)
        return 0;
    const uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto change = xcb_change_window_attributes_checked(m_connection, reply->owner,
                                                             XCB_CW_EVENT_MASK, &events);
    const auto error = Own(xcb_request_check(m_connection, change));
    return error ? 0 : reply->owner; // an error: the window has gone meanwhile
}

void XTray::Look()
{
    const quint32 owner = FindOwner();
    if (std::exchange(m_owner, owner) != owner)
        Q_EMIT Changed();
}

bool XTray::nativeEventFilter(const QByteArray &eventType, void *message, qintptr * /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const int type = event->response_type & 0x7f; // without the flag of a sent event
    if (type == XCB_CLIENT_MESSAGE) {
        const auto *client = reinterpret_cast<const xcb_client_message_event_t *>(event);
        if (client->type == m_manager && client->data.data32[1] == m_selection)
            Look();
    } else if (type == XCB_DESTROY_NOTIFY && m_owner != 0) {
        const auto *destroyed = reinterpret_cast<const xcb_destroy_notify_event_t *>(event);
        if (destroyed->window == m_owner)
            Look();
    }
    return false;
}
