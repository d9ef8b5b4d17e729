#pragma once

#include "net/transfer_options.h"
#include "support/fault_host.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// The four kinds of transfer that the program makes.
enum class Kind
{
    Weather,
    Forecast,
    ZoneList,
    ZoneFile, ///< The second of two.
};

/// What a fault leads to. What the user then sees and what the output files hold is in
/// tst_network_faults.cpp, for each kind of transfer.
enum class Outcome
{
    Fails,    ///< The transfer fails.
    Empty,    ///< It delivers the empty text.
    Page,     ///< It delivers kForeignPage instead of what was asked for.
    CutAtNul, ///< It delivers the right answer with a NUL in the middle of a word.
    Good,     ///< It delivers the right answer all the same.
};

/// One row of the table: a fault and what comes of it.
struct NetworkFault
{
    const char *name = "";
    FaultHost::Fault act = {}; ///< What the host does. Null: the way there is the fault.
    Outcome outcome = Outcome::Good;
    int number = 0;       ///< Of the error, as the zone finder shows it.
    QString reason = {};  ///< As it is traced, where the words are the program's own.
    Way way = Way::Plain; ///< Of the requests that meet the fault.
    TransferOptions limits = {};
    bool silentNames = false; ///< The name server does not answer meanwhile.
};

/// A page from somebody in between, such as a hotel's.
inline const std::string kForeignPage = "<html>\n<title>Log in</title>\n</html>\n";

/// All rows. They are made only once, and their large replies with them.
const std::vector<NetworkFault> &NetworkFaults();
