#include "own_console.h"

bool hasConsoleOfItsOwn()
{
    return false;
}

void waitForKey() { }
