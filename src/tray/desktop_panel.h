#pragma once

#include <QObject>

#include <memory>

/// Tells whether this desktop has a panel that takes the program's icon.
///
/// It does not ask the toolkit: at its first call for a tray icon the toolkit chooses a kind of
/// panel for good, and if there is none at that moment, it never shows an icon.
class DesktopPanel : public QObject
{
    Q_OBJECT

public:
    DesktopPanel() = default;
    ~DesktopPanel() override = default;
    Q_DISABLE_COPY_MOVE(DesktopPanel)

    /// Whether a panel is there now; after Settle() only one of the chosen kind counts.
    [[nodiscard]] virtual bool IsThere() const = 0;

    /// Makes the toolkit choose the kind of panel. Call it while a panel is there, before anything
    /// else that has to do with tray icons; only the first call does something.
    virtual void Settle() = 0;

Q_SIGNALS:
    void Changed(); ///< The panel may have come or gone; see IsThere().
};

/// The panel watch for this system.
[[nodiscard]] std::unique_ptr<DesktopPanel> WatchDesktopPanel();
