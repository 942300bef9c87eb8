// Writes reports in the format that the options request.
#pragma once

#include "options.h"

/// Writes the list of facts, which needs no report.
ExitCode writeFactList(const Options &options);

/// Reads the report that Options::input names, and writes it.
ExitCode convertInput(const Options &options);

/// Writes a report that was made.
ExitCode convertText(const Options &options, const QString &text);

/// Writes text as it is.
ExitCode writeText(const Options &options, const QByteArray &bytes);
