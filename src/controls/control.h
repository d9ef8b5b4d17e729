#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <utility>

class QLabel;
class QPushButton;

/// Logical pixels of a length in twips, of which fifteen make one pixel.
[[nodiscard]] constexpr int Twips(int twips)
{
    return twips / 15;
}

/// Makes a control as a child of `parent` under its own name, which tests and accessibility tools
/// use.
template <typename Control, typename... Args>
[[nodiscard]] Control *MakeControl(QWidget *parent, const QString &name, Args &&...args)
{
    auto *control = new Control(std::forward<Args>(args)..., parent);
    control->setObjectName(name);
    return control;
}

/// Makes a button that Enter presses when it has the focus, as in any dialog.
[[nodiscard]] QPushButton *MakeButton(QWidget *parent, const QString &name, const QString &caption);

/// Makes a title in front of a control, which its mnemonic gives the focus to.
QLabel *MakeTitle(QWidget *parent, const QString &name, const QString &caption, QWidget *buddy);

/// Makes the control's font bold or not.
void SetBold(QWidget *control, bool bold);

/// Calls `left` whenever `control` loses the keyboard focus, edited or not, for as long as the
/// returned object lives. Whoever `left` needs keeps it, or `left` would still be called when the
/// control goes away.
[[nodiscard]] std::unique_ptr<QObject> WhenFocusIsLost(QWidget *control,
                                                       std::function<void()> left);

/// Gives the window and every control in it its own name as accessible description, for automated
/// checks of the running window.
void DescribeControlsByName(QWidget &window);

/// The same, when the environment variable `TAVRIN_WEATHER_NAMES` is "1".
void DescribeControlsOnRequest(QWidget &window);
