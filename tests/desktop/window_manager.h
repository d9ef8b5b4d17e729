#pragma once

#include "desktop/screen.h"

#include <QPoint>
#include <QString>
#include <QStringList>

#include <memory>

/// A window as the task bar lists it.
struct ListedWindow
{
    QString id = {}; ///< Of the X server, as its tools take it; empty: no such window.
    qint64 processId = 0;
    QString title = {};
    bool isMinimised = false;
};

/// A window manager on a screen, and what a task bar would show and do there.
class WindowManager
{
public:
    enum class TitleButton
    {
        Minimise,
        Close,
    };

    /// Starts it and waits until it does what it is asked.
    WindowManager(const Screen &screen, const QString &folder);

    [[nodiscard]] bool IsThere() const { return m_isThere; } ///< False when it does not answer.

    /// All windows that are on the screen or minimised. One that is hidden is not listed.
    [[nodiscard]] QList<ListedWindow> Windows() const;

    /// The one that takes what is typed; empty when there is none.
    [[nodiscard]] QString ActiveWindow() const;

    /// The one above all others.
    [[nodiscard]] QString TopWindow() const;

    /// Where the window's own area begins on the screen.
    [[nodiscard]] QPoint ClientCorner(const QString &window) const;

    /// Clicks a button in the window's title bar.
    void ClickTitleBar(const QString &window, TitleButton button) const;

    /// What a click on the window's entry in a task bar does.
    void Activate(const QString &window) const;

private:
    [[nodiscard]] bool IsAnnounced() const;
    [[nodiscard]] bool IsAwake() const;

    /// The windows that a property of the screen's root names.
    [[nodiscard]] QStringList RootWindows(const QString &property) const;

    const Screen &m_screen;
    std::unique_ptr<ChildProgram> m_manager;
    bool m_isThere = false;
};
