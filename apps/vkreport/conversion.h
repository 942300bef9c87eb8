// Writes reports in the format that the options request.
#pragma once

#include "made_text.h"
#include "options.h"

/// Writes the list of facts, which needs no report.
ExitCode writeFactList(const Options &options);

/// Reads the report that Options::input names, and writes it.
ExitCode convertInput(const Options &options);

/// Writes a text that was made, and says what is missing.
ExitCode writeMade(const Options &options, const MadeText &made);
