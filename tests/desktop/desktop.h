#pragma once

#include "desktop/accessible.h"
#include "desktop/message_bus.h"
#include "desktop/screen.h"
#include "desktop/window_manager.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

/// A test's own desktop: folders, message bus, screen and window manager. Nothing of it is shared
/// with the user's desktop or with a test that runs at the same time.
class Desktop
{
public:
    Desktop();
    ~Desktop() = default;
    Q_DISABLE_COPY_MOVE(Desktop)

    [[nodiscard]] bool IsUp() const; ///< False when one of its parts could not be started.

    /// Programs started from now on have no message bus. What their windows hold can then not be
    /// seen, only the windows themselves.
    void HideBus() { m_isBusHidden = true; }

    /// Programs started from now on are in the session that this one manages.
    void UseSessionManager(const QString &address) { m_sessionManager = address; }

    /// The environment in which programs on this desktop start.
    [[nodiscard]] QProcessEnvironment Environment() const;

    /// A file in the folder of the program under test.
    [[nodiscard]] QString Path(const QString &name) const;
    void Write(const QString &name, const QByteArray &bytes) const;
    [[nodiscard]] QByteArray Read(const QString &name) const;
    [[nodiscard]] QStringList Files() const; ///< All of them, in alphabetical order.

    /// A file beside that folder.
    [[nodiscard]] QString PathBeside(const QString &name) const { return m_folder.filePath(name); }

private:
    bool m_isBusHidden = false;
    QString m_sessionManager; ///< Empty: none.
    QTemporaryDir m_folder;   // first: it goes last, when nobody uses it any more

public:
    MessageBus bus;
    Screen screen;
    WindowManager windows;
    AccessibilityRegistry registry;
    AccessibilityBus accessibilityBus;
};
