#include "call_scope.h"
#include "text.h"
#include "unterminated_texts.h"

using namespace simulated;

BOOL GetComputerNameExW(COMPUTER_NAME_FORMAT format, LPWSTR buffer, LPDWORD size)
{
    CallScope scope("GetComputerNameExW", {{}, QString::number(int(format))});
    scope.call.sizeIn = scope.call.sizeOut = *size;
    if (scope.fault())
        return scope.failure(*scope.fault());
    const machine::NumberedAnswers &names = machineInUse().system.GetComputerNameEx;
    const auto name = names.value(int(format));
    if (!name)
        return scope.failure(name.error ? name.error : names.error);
    const DWORD length = DWORD(name->size());
    const DWORD room = *size;
    *size = room > length ? length : length + 1;
    scope.call.sizeOut = *size;
    if (room <= length)
        return scope.failure(ERROR_MORE_DATA);
    copyWide(*name, buffer);
    return scope.success(TRUE);
}

BOOL GetUserNameW(LPWSTR buffer, LPDWORD size)
{
    CallScope scope("GetUserNameW", {});
    scope.call.sizeIn = scope.call.sizeOut = *size;
    if (scope.fault())
        return scope.failure(*scope.fault());
    const auto &name = machineInUse().system.GetUserName;
    if (!name)
        return scope.failure(name.error);
    const DWORD needed = countedUnits(*name);
    const DWORD room = *size;
    *size = needed;
    scope.call.sizeOut = needed;
    if (room < needed)
        return scope.failure(ERROR_INSUFFICIENT_BUFFER);
    copyCounted(*name, buffer);
    return scope.success(TRUE);
}
