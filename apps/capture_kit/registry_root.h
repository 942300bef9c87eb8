// The root of a description for a root of the registry. Not for sources that use machine.h: windows.h has macros with the
// names of its members.
#pragma once

#include "registry_tree.h"

#include <windows.h>

/// \a key is one of the four roots that a description has.
inline machine::RegistryRoot rootOf(HKEY key)
{
    using machine::RegistryRoot;
    if (key == HKEY_CLASSES_ROOT)
        return RegistryRoot::ClassesRoot;
    if (key == HKEY_CURRENT_USER)
        return RegistryRoot::CurrentUser;
    return key == HKEY_LOCAL_MACHINE ? RegistryRoot::LocalMachine : RegistryRoot::Users;
}
