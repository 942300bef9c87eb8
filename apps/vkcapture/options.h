// The command line of vkcapture.
#pragma once

#include "program_output.h"
#include "redaction_options.h"

#include <optional>

struct Options
{
    QString folder;
    bool force = false;
    bool withReport = false;
    bool redact = false;
    RedactionFiles redaction;
};

/// Reads the command line. Handles --help, --version and wrong usage; returns the exit code if the program can end.
std::optional<ExitCode> parseOptions(Options &options);
