// On Windows winsock2.h must precede windows.h and iphlpapi.h. Nothing of it is used.
#pragma once

#include <windows.h>
