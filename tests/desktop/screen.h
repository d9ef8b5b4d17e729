#pragma once

#include "support/child_program.h"

#include <QPoint>
#include <QString>

#include <memory>
#include <optional>

/// A screen that nobody sees, with keyboard and mouse. What is typed and clicked goes through the X
/// server just as it does from a user's hands.
class Screen
{
public:
    enum class Button
    {
        Left = 1,
        Right = 3,
        WheelUp = 4,
        WheelDown = 5,
    };

    Screen();
    ~Screen();
    Q_DISABLE_COPY_MOVE(Screen)

    /// Its name for the environment variable DISPLAY; empty when it could not be started.
    [[nodiscard]] QString Name() const { return m_name; }

    /// Takes the screen away, as a crash of the X server would.
    void Kill() { m_server->Kill(); }

    /// Moves the mouse there and presses and releases the button, `times` times.
    void Click(QPoint where, Button button = Button::Left, int times = 1) const;

    /// Types text of the characters of a US keyboard.
    void Type(const QString &text) const;

    /// Presses and releases one key or a combination: "Tab", "alt+F4".
    void Press(const QString &keys) const;

    /// What `program` from the X utilities prints about this screen; empty when it fails.
    [[nodiscard]] QByteArray Ask(const QString &program, const QStringList &arguments) const;

private:
    void Hand(const QStringList &moves) const; ///< The moves as xdotool takes them.

    std::unique_ptr<ChildProgram> m_server;
    QString m_name;
};
