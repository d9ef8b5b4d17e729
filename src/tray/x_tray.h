#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

struct xcb_connection_t;

/// Tells whether an X11 panel takes icons: whether the screen's tray selection has an owner.
/// Without an X11 display there is none. The display's own events report every change.
class XTray final : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    XTray();

    [[nodiscard]] bool IsThere() const { return m_owner != 0; }

    /// Inspects events and consumes none.
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

Q_SIGNALS:
    void Changed(); ///< The panel has come or gone, or another one has replaced it.

private:
    [[nodiscard]] quint32 FindOwner() const;
    void Look();

    xcb_connection_t *m_connection = nullptr; ///< The toolkit's; null: no X11 display.
    quint32 m_selection = 0;                  ///< Atom of the tray selection of this screen.
    quint32 m_manager = 0;                    ///< Atom of the message that announces an owner.
    quint32 m_owner = 0;                      ///< The panel's window; 0: none.
};
