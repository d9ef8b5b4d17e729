#pragma once

/// What the programs end with.
enum class ExitCode
{
    Done = 0, ///< All went well.

    // Of the service with --once or --check.
    SomeStored = 1,
    NoneStored = 2,
    NothingSetUp = 3, ///< Or the settings cannot be used.

    // Of both programs.
    Held = 4, ///< Another copy holds the session.

    WrongUse = 64, ///< There is no such option.
};
