#include "app/desktop_session.h"

#include "start/command_line.h"

#include <QEvent>
#include <QGuiApplication>

#include <utility>

using namespace Qt::StringLiterals;

DesktopSession::DesktopSession(QGuiApplication &app, QStringList arguments)
    : m_app(app)
    , m_arguments(std::move(arguments))
{
    // A session manager may send either request alone, and the toolkit puts its own restart command
    // back each time.
    connect(&app, &QGuiApplication::commitDataRequest, this, [this](QSessionManager &manager) {
        TellRestart(manager);
        Q_EMIT SaveRequested();
    });
    connect(&app, &QGuiApplication::saveStateRequest, this, &DesktopSession::TellRestart);
    app.installEventFilter(this);
}

void DesktopSession::TellRestart(QSessionManager &manager) const
{
    const QString session = manager.sessionId() + u'_' + manager.sessionKey();
    manager.setRestartCommand(
        RestartCommand(QCoreApplication::applicationFilePath(), session, m_arguments));
}

bool DesktopSession::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != &m_app || event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    // The toolkit must not see it: it would close each window as code does, and end the event loop
    // even if one has stayed open.
    Q_EMIT EndRequested();
    return true;
}
