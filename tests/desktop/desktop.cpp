#include "desktop/desktop.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

Desktop::Desktop()
    : bus(m_folder.path())
    , windows(screen, m_folder.path())
    , registry(bus.Connection())
    , accessibilityBus(bus.Connection(), bus.Address())
{
    QDir(m_folder.path()).mkdir(u"program"_s);
}

bool Desktop::IsUp() const
{
    return m_folder.isValid() && bus.Connection().isConnected() && !screen.Name().isEmpty()
        && windows.IsThere();
}

QProcessEnvironment Desktop::Environment() const
{
    const auto users = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment environment;
    // Where libraries are and what sanitizers are told; nothing that describes the user's desktop.
    for (const QString &name : users.keys()) {
        const bool isKept = name == "PATH" || name == "TMPDIR" || name.startsWith("LD_")
                         || name.endsWith("SAN_OPTIONS") || name == "QT_PLUGIN_PATH";
        if (isKept)
            environment.insert(name, users.value(name));
    }
    environment.insert("LANG", "C.UTF-8");
    environment.insert("HOME", m_folder.path());
    environment.insert("XDG_RUNTIME_DIR", m_folder.path());
    environment.insert("DISPLAY", screen.Name());
    environment.insert("DBUS_SESSION_BUS_ADDRESS",
                       m_isBusHidden ? u"unix:path=/dev/null"_s : bus.Address());
    if (!m_sessionManager.isEmpty())
        environment.insert("SESSION_MANAGER", m_sessionManager);
    environment.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    return environment;
}

QString Desktop::Path(const QString &name) const
{
    return PathBeside("program/" + name);
}

void Desktop::Write(const QString &name, const QByteArray &bytes) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qUtf8Printable(name));
}

QByteArray Desktop::Read(const QString &name) const
{
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

QStringList Desktop::Files() const
{
    return QDir(PathBeside(u"program"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}
