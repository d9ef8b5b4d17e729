#pragma once

#include <QString>

#include <chrono>
#include <functional>

class QWidget;

/// Asks the user a question under `title`.
/// @return true for "Yes"; false for everything else.
using YesNoQuestion =
    std::function<bool(QWidget *parent, const QString &title, const QString &text)>;

/// Asks in a message box and waits for the answer.
[[nodiscard]] bool AskYesNo(QWidget *parent, const QString &title, const QString &text);

/// Shows why the program cannot start and waits until the user closes the box, but no longer than
/// `patience`: an unattended start must not hang.
void ShowFatalProblem(const QString &problem, std::chrono::milliseconds patience);
