// Makes the report in this process, as any host does.
#pragma once

#include "options.h"

/// Makes and writes what the options request. A crash ends this process, a hang is waited for.
ExitCode makeInProcess(const Options &options, int argc, char **argv);
