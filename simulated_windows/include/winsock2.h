// On Windows iphlpapi.h wants this before windows.h; nothing of it is used.
#pragma once

#include <windows.h>
