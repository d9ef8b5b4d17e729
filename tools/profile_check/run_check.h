#pragma once

#include "net/http_transfers.h"
#include "profile_check/check_options.h"
#include "store/ini_file.h"

#include <QDateTime>
#include <QString>

/// The check's output and exit code.
struct CheckResult
{
    int exitCode = 0;     ///< 0: every reply parsed; 1: one did not; 2: a file cannot be read.
    QString output = {};  ///< For standard output.
    QString problem = {}; ///< One line for standard error; empty: none.
};

/// Does what the options request. Reads files and writes none.
/// @param profileFile read unless the options name another one.
/// @param now         local date and time.
[[nodiscard]] CheckResult RunCheck(const CheckOptions &options, const QString &profileFile,
                                   HttpTransfers &http, const QDateTime &now);
