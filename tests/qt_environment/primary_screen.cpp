// Stands in for QGuiApplication::primaryScreen() in the program that it is linked into.
// PRIMARY_SCREEN in the environment decides: "none", or a position in Qt's list of
// screens, from 0. Without it, Qt does. Calls of Qt itself reach Qt.

#include "vkSystemInfo.h"

#include <QtGui/QGuiApplication>
#include <dlfcn.h>

namespace {

/// Where the program or library that holds this address starts.
void *moduleOf(void *address)
{
    Dl_info info = {};
    dladdr(address, &info);
    return info.dli_fbase;
}

bool isCallOfTheSection(void *returnAddress)
{
    return moduleOf(returnAddress) == moduleOf(reinterpret_cast<void *>(&velkor::SystemInfo::qtDesktop));
}

} // namespace

// The linker finds this one before Qt's own.
QScreen *QGuiApplication::primaryScreen()
{
    using Function = QScreen *(*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN15QGuiApplication13primaryScreenEv"));
    const QByteArray choice = qgetenv("PRIMARY_SCREEN");
    if (choice.isEmpty() || !isCallOfTheSection(__builtin_return_address(0)))
        return real();
    return choice == "none" ? nullptr : screens().at(choice.toInt());
}
