#pragma once

#include "core/trace.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// `line` as UTF-8 with its line end, a single line for every reader and on every terminal:
/// carriage returns, line feeds and NULs inside it become "\r", "\n" and "\0"; other control
/// characters except tabs, and Unicode's line and paragraph separators, become "\x" and their
/// hexadecimal number.
[[nodiscard]] QByteArray TraceLineBytes(const QString &line);

/// Opens the channel that `where` (the environment variable TAVRIN_TRACE) names: "1" is standard
/// error; any other text is a file that lines are appended to, each one flushed.
///
/// Whatever it names, the process from then on survives the readers of its output and its trace:
/// what is written to a pipe that nobody reads is lost.
///
/// @return null if nothing is to be traced ("" or "0"; on Windows these mean the debugger's
///         channel), or if the file cannot be opened, which is reported on standard error.
[[nodiscard]] std::unique_ptr<TraceListener> OpenTraceSink(const QString &where);
