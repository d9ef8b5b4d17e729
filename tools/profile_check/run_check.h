#pragma once

#include "net/http_transfers.h"
#include "profile_check/check_options.h"
#include "store/ini_file.h"

#include <QDateTime>
#include <QString>

/// What the check prints and how it ends.
struct CheckResult
{
    int exitCode = 0;     ///< 0: every reply parsed; 1: one did not; 2: a file cannot be read.
    QString output = {};  ///< For the standard output.
    QString problem = {}; ///< One line for the standard error output; empty: none.
};

/// Does what the options ask for. Reads files and writes none.
/// @param profileFile is read unless the options name another one.
/// @param now         local date and time.
[[nodiscard]] CheckResult RunCheck(const CheckOptions &options, const QString &profileFile,
                                   HttpTransfers &http, const QDateTime &now);
