#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <utility>

class QLabel;
class QLayout;
class QPushButton;

/// Makes a control as a child of `parent`, with its name as object name, which tests and
/// accessibility tools use.
template <typename Control, typename... Args>
[[nodiscard]] Control *MakeControl(QWidget *parent, const QString &name, Args &&...args)
{
    auto *control = new Control(std::forward<Args>(args)..., parent);
    control->setObjectName(name);
    return control;
}

/// Makes a button that Enter presses when it has the focus, as in any dialog.
[[nodiscard]] QPushButton *MakeButton(QWidget *parent, const QString &name, const QString &caption);

/// Makes a title for the control `buddy`, which gets the focus by the title's mnemonic.
QLabel *MakeTitle(QWidget *parent, const QString &name, const QString &caption, QWidget *buddy);

/// Makes a layout in which two controls have one place; only one of them is shown at a time.
[[nodiscard]] QLayout *InOnePlace(QWidget *one, QWidget *other);

/// Makes the control's font bold or not.
void SetBold(QWidget *control, bool bold);

/// Calls `left` whenever `control` loses the keyboard focus, edited or not, for as long as the
/// returned object lives. The object that `left` uses must own it; otherwise `left` could still be
/// called when the control is destroyed.
[[nodiscard]] std::unique_ptr<QObject> WhenFocusIsLost(QWidget *control,
                                                       std::function<void()> left);

/// Gives the window and every control in it its own name as accessible description, for automated
/// checks of the running window.
void DescribeControlsByName(QWidget &window);

/// The same, if the environment variable `TAVRIN_WEATHER_NAMES` is "1".
void DescribeControlsOnRequest(QWidget &window);
