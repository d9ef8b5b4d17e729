#pragma once

#include <QtGlobal>

// What the main window does when it is minimised and when its icon is clicked, as functions of what
// it sees. The numbers are those of the trace lines and of mouse messages.

/// How the window stands on the screen.
enum class WindowState
{
    Normal = 0,
    Minimized = 1,
    Maximized = 2,
};

enum class ResizeStep
{
    Nothing,
    HideInTray, ///< Only the icon remains.
    Restore,    ///< Normal state, shown.
};

/// What follows from a change of the window's size or state.
///
/// Minimised, the window hides in the tray, but only while its icon is in a panel: without one
/// there would be no way back. Any change while it is hidden brings it back.
[[nodiscard]] ResizeStep StepOfResize(WindowState state, bool isMinimizedToTray, bool isIconShown);

/// The messages of a click on the icon, in the place of the pixel that the mouse is at.
inline constexpr int kLeftButtonDown = 513;
inline constexpr int kRightButtonUp = 517;

/// True for a mouse position in twips whose nearest whole pixel (exact halves: the even one) is one
/// of the two messages of a click.
[[nodiscard]] bool IsRestoreMessage(double x);
