#pragma once

#include "app/frm_main.h"
#include "support/open_station.h"

/// Station and window of one session, as main() wires them.
class WholeProgram
{
public:
    WholeProgram(const ProgramFiles &files, const Platform &platform)
        : station(files, platform.clock, platform.http, writer, Owner::Window)
        , window(station, memory, platform, [](auto &&...) { return true; })
    {}

    DirectFileWriter writer;
    OpenStation station;
    WindowMemory memory;
    frmMain window;
};
