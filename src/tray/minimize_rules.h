#pragma once

#include <QtGlobal>

// What the main window does when it is minimised and when its icon is clicked, as functions of what
// it sees. The numbers appear in trace lines and mouse messages.

/// The window's state on the screen.
enum class WindowState
{
    Normal = 0,
    Minimized = 1,
    Maximized = 2,
};

/// What follows from a change of the window's size or state.
enum class ResizeStep
{
    Nothing,
    HideInTray, ///< Only the icon remains.
    Restore,    ///< Normal state, shown.
};

/// What to do after a change of the window's size or state.
///
/// When minimised, the window hides in the tray, but only while its icon is in a panel, because
/// otherwise there would be no way back. Any change while it is hidden brings it back.
[[nodiscard]] ResizeStep StepOfResize(WindowState state, bool isMinimizedToTray, bool isIconShown);

/// The messages of a click on the icon; they arrive in place of the mouse's pixel position.
inline constexpr int kLeftButtonDown = 513;
inline constexpr int kRightButtonUp = 517;

/// True for a mouse position in twips whose nearest whole pixel (exact halves to even) equals one
/// of the two click messages.
[[nodiscard]] bool IsRestoreMessage(double x);
