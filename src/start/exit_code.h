#pragma once

/// What the programs end with.
enum class ExitCode
{
    Done = 0, ///< All went well.

    // Of the service when it is to do one thing.
    SomeStored = 1,
    NoneStored = 2,
    NothingSetUp = 3, ///< Or the settings cannot be used.

    // Of both programs.
    Held = 4, ///< The session is another copy's.

    WrongUse = 64, ///< An option that there is not.
};
