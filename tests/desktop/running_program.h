#pragma once

#include "desktop/desktop.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// Milliseconds, far more than any step needs: a slow machine is no failure.
inline constexpr int kPatience = 30'000;

/// The built program on a test's desktop, used as a person uses it: its controls are found as
/// assistive technology finds them, and then clicked and typed into on the screen.
///
/// What waits gives up after kPatience and returns false.
class RunningProgram
{
public:
    using State = Accessible::State;

    explicit RunningProgram(Desktop &desktop, const QStringList &arguments = {});
    ~RunningProgram(); ///< Tells what it knows when the test has failed.
    Q_DISABLE_COPY_MOVE(RunningProgram)

    /// Waits until the window can be used: it is on the screen and no longer moves.
    [[nodiscard]] bool IsShown();

    /// Waits until the window is minimised in the task bar.
    [[nodiscard]] bool IsMinimised() const;

    /// Waits until the program runs without having its window on the screen or in the task bar.
    [[nodiscard]] bool IsHidden() const;

    /// Waits until what is typed goes to the main window.
    [[nodiscard]] bool IsActive() const;

    /// The main window as the task bar has it; without an id when it is not listed.
    [[nodiscard]] ListedWindow Window() const;

    [[nodiscard]] QString Text(const QString &control); ///< Of a box or a label, by its name.
    [[nodiscard]] bool Is(const QString &control, State state);

    /// Waits until the control can be clicked, and clicks its middle.
    [[nodiscard]] bool Click(const QString &control, Screen::Button button = Screen::Button::Left,
                             int times = 1);

    /// The same with a button or an entry found by what is written on it, in any window or list.
    [[nodiscard]] bool ClickTitled(const QString &title);

    /// Whether something with that title is there to be clicked.
    [[nodiscard]] bool IsTitledShown(const QString &title) const;

    /// Clicks into the box, replaces all its text and waits until it has the new one.
    [[nodiscard]] bool TypeInto(const QString &box, const QString &text);

    [[nodiscard]] ChildProgram &Process() { return m_process; }
    [[nodiscard]] QByteArray Trace() const; ///< All trace lines so far.

private:
    [[nodiscard]] QList<Accessible> AllObjects() const;
    [[nodiscard]] std::optional<Accessible> Control(const QString &name);
    [[nodiscard]] std::optional<Accessible> Titled(const QString &title) const;

    Desktop &m_desktop;
    QString m_traceFile;
    ChildProgram m_process;
    QHash<QString, Accessible> m_controls; ///< Those found so far, by their names.
};
