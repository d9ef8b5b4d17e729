#pragma once

#include <QObject>

#include <memory>

/// Tells whether this desktop has a panel that takes the program's icon.
///
/// It finds out by itself, because the toolkit must not be asked too early: with its first call
/// for a tray icon it chooses a kind of panel for good, and without one it would never show an
/// icon again.
class DesktopPanel : public QObject
{
    Q_OBJECT

public:
    DesktopPanel() = default;
    ~DesktopPanel() override = default;
    Q_DISABLE_COPY_MOVE(DesktopPanel)

    [[nodiscard]] virtual bool IsThere() const = 0;

    /// To be called while a panel is there, ahead of everything that has to do with tray icons:
    /// the toolkit chooses the kind of panel, and from now on only that kind counts.
    virtual void Settle() = 0;

Q_SIGNALS:
    void Changed(); ///< Perhaps: look whether it is there.
};

/// The watch over the panel that fits this system.
[[nodiscard]] std::unique_ptr<DesktopPanel> WatchDesktopPanel();
