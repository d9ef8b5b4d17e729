#pragma once

#include "app/program_files.h"
#include "forecast/forecast_request.h"
#include "net/http_transfers.h"
#include "profiles/weather_profile.h"
#include "store/min_max_store.h"
#include "tray/tray_animation.h"

#include <array>

/// Everything that lives for the whole run and that the subsystems share.
///
/// There is one, made in main(); a test makes its own. It has no behaviour and no locks: only the
/// user-interface thread touches it. Only app/ knows this struct: it hands each subsystem the
/// member that is that subsystem's own.
struct ProgramState
{
    bool IsFirstRun = false;
    bool MinimizeOnStartupEnabled = false;
    ProgramFiles files = {};    ///< Holds `SessionId`, part of every session file's name.
    QString folderProblem = {}; ///< What is wrong with the folder of `files`, for the user.

    ProfileTable profiles = {}; ///< Ten weather profiles, currentWeatherProfile, the forecast's.
    MinMaxTemps minMax = {};

    ForecastState forecast = {};
    std::array<bool, 4> ScheduleFired = {}; ///< Which of the schedule's slots have been answered.
    qint16 ForecastRequestCountdown = 0;    ///< Milliseconds to the forecast request; 0: none.

    bool ZoneFinderOpen = false;   ///< The zone finder is loaded.
    qint16 SelectedStateIndex = 0; ///< The state that the zone finder begins with, 0..49.

    TrayState tray = {};
    bool GraphicsFormLoaded = false; ///< The form with the tray icon's images is loaded.

    TransferHandle WeatherThreadHandle = 0;
    TransferHandle ForecastThreadHandle = 0;
    TransferHandle ZoneCodeThreadHandle = 0;
};
