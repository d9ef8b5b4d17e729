#include "desktop/session_manager.h"

#include <QTest>

namespace {

constexpr int kAnswerPatience = 30'000; // milliseconds

} // namespace

SessionManager::SessionManager() : m_process(TAVRIN_SESSION_MANAGER)
{
    m_address = m_process.FirstLine();
    if (m_address.isEmpty())
        qWarning() << "The session manager did not start:" << m_process.Errors();
}

void SessionManager::Listen()
{
    m_unread += m_process.Output();
    for (qsizetype end = 0; (end = m_unread.indexOf('\n')) >= 0; m_unread.remove(0, end + 1))
        m_said.append(m_unread.first(end));
}

bool SessionManager::WaitFor(const QByteArray &line)
{
    const auto isSaid = [&] {
        Listen();
        return m_said.indexOf(line, m_awaited) >= 0;
    };
    if (!QTest::qWaitFor(isSaid, kAnswerPatience)) {
        qWarning() << "No" << line << "in" << m_said;
        return false;
    }
    m_awaited = m_said.indexOf(line, m_awaited) + 1;
    return true;
}

bool SessionManager::Order(const QByteArray &order, const QByteArray &answer)
{
    m_process.Write(order + '\n');
    return WaitFor(answer);
}

bool SessionManager::HasNewClient()
{
    return WaitFor("registered as new") && WaitFor("saved");
}

bool SessionManager::HasClient(const QString &id)
{
    return WaitFor("registered " + id.toUtf8());
}

QStringList SessionManager::RestartCommand()
{
    Listen();
    QStringList command;
    for (const QByteArray &line : m_said) {
        if (line.startsWith("property RestartCommand\t"))
            command = QString::fromUtf8(line).split('\t').mid(1);
    }
    return command;
}
