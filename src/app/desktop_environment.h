#pragma once

/// Makes the toolkit try X11 before Wayland if the desktop offers both and the user has not chosen
/// with `QT_QPA_PLATFORM`: a Wayland window never learns that it was minimised, so it could not
/// hide in the tray. Call it before the application object is made.
void PreferX11();

/// Makes the toolkit send what it paints to an X server through the connection. Through shared
/// memory it would wait for the server each time, and a countdown is painted every second. Call it
/// before the application object is made.
void PaintThroughConnection();
