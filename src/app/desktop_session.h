#pragma once

#include <QObject>
#include <QSessionManager>
#include <QStringList>

class QGuiApplication;

/// Receives what the desktop requests when it saves or ends its session.
///
/// A request to save ends nothing: the session may only be saved, or the log-out be cancelled. The
/// end itself arrives as the toolkit's quit event, from a session manager or from whatever else
/// makes the application quit.
class DesktopSession final : public QObject
{
    Q_OBJECT

public:
    /// `app` must outlive this object.
    /// @param arguments of this start; the desktop's next session starts the program with them.
    DesktopSession(QGuiApplication &app, QStringList arguments);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void SaveRequested(); ///< Save everything before you return; the program goes on.
    void EndRequested();  ///< End without asking the user.

private:
    void TellRestart(QSessionManager &manager) const;

    QGuiApplication &m_app;
    QStringList m_arguments;
};
