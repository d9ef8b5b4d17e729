#pragma once

#include "core/clock.h"
#include "net/http_transfers.h"
#include "tray/panel_icon.h"

/// The program's doors to the outside. main() opens the real ones, a test opens fakes.
/// Holds references only: the objects behind them outlive it.
struct Platform
{
    const Clock &clock;
    HttpTransfers &http;
    PanelIcon &panelIcon;
};
