#pragma once

#include "core/trace.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// `line` as one line of UTF-8 with its line end, for every reader and on every terminal: carriage
/// returns, line feeds and NULs inside it become "\r", "\n" and "\0", other control characters but
/// tabs, and the line and paragraph separators of Unicode, "\x" and their hexadecimal number.
[[nodiscard]] QByteArray TraceLineBytes(const QString &line);

/// Opens the channel that `where` (the environment variable TAVRIN_TRACE) names: "1" is the
/// standard error output; any other text is a file that lines are appended to, each one flushed.
///
/// @return null when nothing is to be traced ("" or "0"; on Windows these mean the debugger's
///         channel), or when the file cannot be opened, which is reported on the standard error
///         output.
[[nodiscard]] std::unique_ptr<TraceListener> OpenTraceSink(const QString &where);
