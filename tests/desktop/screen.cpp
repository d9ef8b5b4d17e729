#include "desktop/screen.h"

#include <QDebug>

using namespace Qt::StringLiterals;

Screen::Screen()
{
    // The server picks a free number itself and prints it once it can be used.
    m_server = std::make_unique<ChildProgram>(
        u"Xvfb"_s, QStringList{"-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp",
                               "-noreset"});
    if (const QString number = m_server->FirstLine(); !number.isEmpty())
        m_name = ":" + number;
    else
        qWarning() << "Xvfb did not start:" << m_server->Errors();
}

Screen::~Screen()
{
    m_server->Terminate(); // it removes its lock file
    (void)m_server->ExitCode();
}

void Screen::Click(QPoint where, Button button, int times) const
{
    Hand({"mousemove", QString::number(where.x()), QString::number(where.y()), "click", "--repeat",
          QString::number(times), "--delay", "1", QString::number(int(button))});
}

void Screen::Type(const QString &text) const
{
    Hand({"type", "--delay", "1", "--", text});
}

void Screen::Press(const QString &keys) const
{
    Hand({"key", keys});
}

QByteArray Screen::Ask(const QString &program, const QStringList &arguments) const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", m_name);
    ChildProgram process(program, arguments, environment);
    return process.ExitCode() == 0 ? process.Output() : QByteArray();
}

void Screen::Hand(const QStringList &moves) const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", m_name);
    ChildProgram process(u"xdotool"_s, moves, environment);
    if (process.ExitCode() != 0)
        qWarning() << "xdotool" << moves << process.Errors();
}
