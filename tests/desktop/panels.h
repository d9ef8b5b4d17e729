#pragma once

#include "desktop/desktop.h"
#include "support/child_program.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

/// Where a desktop shows the icons of programs that run out of sight. It goes away with the object,
/// as if it had crashed.
class Panel
{
public:
    enum class Kind
    {
        Status, ///< Learns of icons over the message bus.
        X,      ///< The older kind: programs put a window of their own into it.
    };

    [[nodiscard]] static std::unique_ptr<Panel> Start(Kind kind, const Desktop &desktop);

    Panel() = default;
    virtual ~Panel() = default;
    Q_DISABLE_COPY_MOVE(Panel)

    [[nodiscard]] virtual bool HasIcon() const = 0; ///< One that can be clicked.

    virtual void Click(Screen::Button button) const = 0; ///< On the icon.
};
Q_DECLARE_METATYPE(Panel::Kind)

/// The watcher, which programs look for, is a process of its own; the test's process is the panel.
class StatusPanel final : public Panel
{
public:
    explicit StatusPanel(const Desktop &desktop);
    ~StatusPanel() override; ///< Returns when everybody on the bus knows of its end.
    Q_DISABLE_COPY_MOVE(StatusPanel)

    [[nodiscard]] bool HasIcon() const override { return !Icons().isEmpty(); }
    void Click(Screen::Button button) const override;

    [[nodiscard]] QString ToolTip() const; ///< Of the first icon.

private:
    [[nodiscard]] QStringList Icons() const; ///< The services of the icons that have come.
    [[nodiscard]] QVariant Property(const QString &service, const QString &path,
                                    const QString &interface, const QString &name) const;

    QDBusConnection m_bus;
    std::unique_ptr<ChildProgram> m_watcher;
};

class XPanel final : public Panel
{
public:
    explicit XPanel(const Desktop &desktop);

    [[nodiscard]] bool HasIcon() const override { return Icon().has_value(); }
    void Click(Screen::Button button) const override;

private:
    /// Where the first icon is on the screen.
    [[nodiscard]] std::optional<QPoint> Icon() const;

    const Screen &m_screen;
    ChildProgram m_trayer;
};
