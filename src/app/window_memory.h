#pragma once

#include "tray/tray_animation.h"

#include <QString>

/// What the window and its dialogs remember during a run. Everything else is in the station.
struct WindowMemory
{
    QString folderProblem = {}; ///< What is wrong with the program's folder, for the user.

    bool ZoneFinderOpen = false;   ///< The zone finder is loaded.
    qint16 SelectedStateIndex = 0; ///< The state that the zone finder begins with, 0..49.

    TrayState tray = {};
    bool GraphicsFormLoaded = false; ///< The form with the tray icon's images is loaded.
};
