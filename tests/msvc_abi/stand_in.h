// Included by the generated stand-ins for Qt's DLLs.
#pragma once

#include <stdio.h>
#include <stdlib.h>

[[noreturn]] inline void notImplemented(const char *name)
{
    fputs("FAILED  the stand-in does not implement ", stdout);
    puts(name);
    fflush(stdout);
    _exit(99);
}
