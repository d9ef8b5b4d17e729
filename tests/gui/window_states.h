#pragma once

#include "gui/main_window.h"

#include <QPalette>
#include <QWidget>

#include <functional>
#include <vector>

/// One of the states in which people see the program.
struct ShownState
{
    /// Called with the window to look at while it is on the screen.
    using Visit = std::function<void(QWidget &window)>;

    const char *name = "";  ///< Also the name of its picture.
    const char *title = ""; ///< For people.
    void (*show)(MainWindow &m, const Visit &visit) = nullptr;
    bool isOnSheet = true; ///< Also on the contact sheet.
};

/// All of them, each beginning with a main window that has not been started yet.
[[nodiscard]] const std::vector<ShownState> &WindowStates();

/// Brings up one state after the other and calls `visit` in each.
void VisitWindowStates(const std::function<void(const ShownState &state, QWidget &window)> &visit);

/// Lets layouts and what is laid out in pieces settle.
void Settle();

/// Palettes as desktops have them.
[[nodiscard]] QPalette LightPalette();
[[nodiscard]] QPalette DarkPalette();
