#include "call_scope.h"
#include "handle_table.h"
#include "text.h"

#include <array>
#include <cstring>
#include <psapi.h>

namespace simulated {
namespace {

const HANDLE currentProcess = reinterpret_cast<HANDLE>(std::intptr_t(-1));
const HMODULE kernel32 = reinterpret_cast<HMODULE>(quintptr(0x7ff0000));
// Handles of the modules start here, so that they differ from library handles.
constexpr quintptr firstModule = 0x10000000;

/// Casts a function to the type that GetProcAddress() returns.
template <typename Function>
FARPROC asFunction(Function function)
{
    return reinterpret_cast<FARPROC>(reinterpret_cast<void *>(function));
}

BOOL WINAPI getProductInfo(DWORD major, DWORD minor, DWORD servicePackMajor, DWORD servicePackMinor, PDWORD type)
{
    const QString version = QStringLiteral("%1.%2.%3.%4");
    CallScope scope("GetProductInfo", {{}, version.arg(major).arg(minor).arg(servicePackMajor).arg(servicePackMinor)});
    const auto &product = machineInUse().system.GetProductInfo;
    if (scope.fault())
        return scope.failure(*scope.fault());
    if (!product || !*product)
        return scope.failure(product ? product->error : DWORD(ERROR_SUCCESS));
    *type = (*product)->dwReturnedProductType;
    return scope.success(TRUE);
}

// The function cannot know its library, so each place gets its own instantiation. A loaded
// library occupies a place.
constexpr std::size_t places = 8;
std::array<machine::DnsServiceRecord, places> services;
std::array<quintptr, places> occupants {}; // handles of the libraries; a place is free after its handle is closed

using Place = std::array<quintptr, places>::iterator;

Place placeOf(quintptr library)
{
    return std::find(occupants.begin(), occupants.end(), library);
}

Place freePlace()
{
    return std::find_if(occupants.begin(), occupants.end(), [](quintptr occupant) { return !handles().isOpen(occupant); });
}

template <std::size_t place>
qint32 WINAPI dnsServiceGetProperty(const char *property, void *result, DWORD *size)
{
    CallScope scope("DNSServiceGetProperty", {{}, QString::fromLatin1(property)});
    scope.call.sizeIn = scope.call.sizeOut = *size;
    const machine::DnsServiceRecord &service = services[place];
    if (scope.fault())
        return qint32(scope.status(*scope.fault()));
    if (service.error == 0) {
        std::memcpy(result, &service.DaemonVersion, sizeof service.DaemonVersion);
        *size = scope.call.sizeOut = sizeof service.DaemonVersion;
    }
    return qint32(scope.status(DWORD(service.error)));
}

template <std::size_t... place>
FARPROC dnsServiceAt(std::size_t index, std::index_sequence<place...>)
{
    const FARPROC functions[] = {asFunction(&dnsServiceGetProperty<place>)...};
    return functions[index];
}

} // namespace
} // namespace simulated

using namespace simulated;

HANDLE GetCurrentProcess()
{
    return currentProcess;
}

BOOL EnumProcessModules(HANDLE process, HMODULE *modules, DWORD bytes, LPDWORD bytesNeeded)
{
    CallScope scope("EnumProcessModules", {});
    scope.call.sizeIn = scope.call.sizeOut = bytes;
    const auto &names = machineInUse().system.EnumProcessModules;
    if (scope.fault())
        return scope.failure(*scope.fault());
    if (process != currentProcess)
        return scope.failure(ERROR_INVALID_HANDLE);
    if (!names)
        return scope.failure(names.error);
    const std::size_t room = bytes / sizeof(HMODULE);
    for (std::size_t i = 0; i < std::min(room, names->size()); ++i)
        modules[i] = reinterpret_cast<HMODULE>(firstModule + (i << 4));
    *bytesNeeded = DWORD(names->size() * sizeof(HMODULE));
    scope.call.sizeOut = *bytesNeeded;
    return scope.success(TRUE);
}

DWORD GetModuleFileNameExW(HANDLE process, HMODULE module, LPWSTR name, DWORD size)
{
    const std::size_t index = (reinterpret_cast<quintptr>(module) - firstModule) >> 4;
    CallScope scope("GetModuleFileNameExW", {{}, QString::number(index)});
    scope.call.sizeIn = scope.call.sizeOut = size;
    const auto &names = machineInUse().system.EnumProcessModules;
    if (scope.fault())
        return DWORD(scope.failure(*scope.fault()));
    if (process != currentProcess || !names || index >= names->size() || !(*names)[index])
        return DWORD(scope.failure(ERROR_INVALID_HANDLE));
    if (size == 0)
        return DWORD(scope.failure(ERROR_INSUFFICIENT_BUFFER));
    const QString text = (*names)[index]->left(int(size) - 1); // truncated, as on Windows
    copyWide(text, name);
    return scope.success(DWORD((*names)[index]->size() < int(size) ? text.size() : int(size)));
}

HMODULE GetModuleHandleW(LPCWSTR name)
{
    CallScope scope("GetModuleHandleW", {fromWide(name), {}});
    const bool known = knowsMachine() && scope.call.key.compare(QLatin1String("kernel32.dll"), Qt::CaseInsensitive) == 0;
    if (scope.anyFault() || !known) {
        scope.failure(scope.anyFault().value_or(ERROR_MOD_NOT_FOUND));
        return nullptr;
    }
    scope.call.result = 1;
    return kernel32;
}

HMODULE LoadLibraryW(LPCWSTR name)
{
    CallScope scope("LoadLibraryW", {fromWide(name), {}});
    const auto &libraries = machineInUse().system.libraries;
    const auto library = libraries.constFind(scope.call.key.toLower());
    const Place place = freePlace();
    if (scope.anyFault() || library == libraries.constEnd() || place == occupants.end()) {
        scope.failure(scope.anyFault().value_or(ERROR_MOD_NOT_FOUND));
        return nullptr;
    }
    *place = handles().add({HandleKind::Library, scope.call.key, nullptr});
    if (library->DNSServiceGetProperty)
        services[std::size_t(place - occupants.begin())] = *library->DNSServiceGetProperty;
    scope.call.result = 1;
    return reinterpret_cast<HMODULE>(*place);
}

BOOL FreeLibrary(HMODULE module)
{
    CallScope scope("FreeLibrary", {});
    const quintptr number = reinterpret_cast<quintptr>(module);
    const bool known = handles().remove(number, HandleKind::Library, "FreeLibrary");
    if (scope.anyFault() || !known)
        return scope.failure(scope.anyFault().value_or(ERROR_INVALID_HANDLE));
    return scope.success(TRUE);
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name)
{
    BegunCall begun("GetProcAddress");
    const quintptr number = reinterpret_cast<quintptr>(module);
    const Handle *library = nullptr;
    if (module != kernel32)
        library = handles().find(number, HandleKind::Library, "GetProcAddress");
    CallScope scope(begun, {library ? library->openedFor : QString(), QString::fromLatin1(name)});
    const machine::SystemAnswers &system = machineInUse().system;
    FARPROC function = nullptr;
    if (module == kernel32) {
        if (scope.call.value == QLatin1String("GetProductInfo") && system.GetProductInfo)
            function = asFunction(&getProductInfo);
    } else if (library) {
        const bool exported = scope.call.value == QLatin1String("DNSServiceGetProperty")
            && system.libraries.value(library->openedFor.toLower()).DNSServiceGetProperty;
        const Place place = placeOf(number);
        if (exported && place != occupants.end())
            function = dnsServiceAt(std::size_t(place - occupants.begin()), std::make_index_sequence<places>());
    }
    if (scope.anyFault() || !function) {
        scope.failure(scope.anyFault().value_or(ERROR_PROC_NOT_FOUND));
        return nullptr;
    }
    scope.call.result = 1;
    return function;
}
