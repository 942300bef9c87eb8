#include "call_scope.h"
#include "text.h"
#include "unterminated_texts.h"

#include <cstdarg>
#include <shlobj.h>

namespace simulated {
namespace {

UINT copyDirectory(const char *callName, const machine::Answer<QString> &path, LPWSTR buffer, UINT size)
{
    CallScope scope(callName, {});
    scope.call.sizeIn = scope.call.sizeOut = size;
    if (scope.fault())
        return UINT(scope.failure(*scope.fault()));
    if (!path)
        return UINT(scope.failure(path.error));
    const UINT length = UINT(path->size());
    if (length >= size)
        return scope.success(length + 1);
    copyWide(*path, buffer);
    return scope.success(length);
}

/// \a source with its variables replaced. A variable that is not set is not replaced. Returns the
/// error of a variable if the description has one.
machine::Answer<QString> expanded(const QString &source)
{
    const machine::SystemAnswers &system = machineInUse().system;
    QString result;
    int position = 0;
    for (;;) {
        const int open = source.indexOf(QLatin1Char('%'), position);
        const int close = open < 0 ? -1 : source.indexOf(QLatin1Char('%'), open + 1);
        if (close < 0)
            return {result + source.mid(position)};
        const QString name = source.mid(open + 1, close - open - 1);
        const QString key = machine::upperCased(name);
        if (system.expansionErrors.contains(key))
            return {std::nullopt, system.expansionErrors.value(key)};
        result += source.mid(position, open - position);
        result += system.environment.value(key, QLatin1Char('%') + name + QLatin1Char('%'));
        position = close + 1;
    }
}

} // namespace
} // namespace simulated

using namespace simulated;

UINT GetSystemWindowsDirectoryW(LPWSTR buffer, UINT size)
{
    return copyDirectory("GetSystemWindowsDirectoryW", machineInUse().system.GetSystemWindowsDirectory, buffer, size);
}

UINT GetSystemWow64DirectoryW(LPWSTR buffer, UINT size)
{
    return copyDirectory("GetSystemWow64DirectoryW", machineInUse().system.GetSystemWow64Directory, buffer, size);
}

DWORD ExpandEnvironmentStringsW(LPCWSTR source, LPWSTR buffer, DWORD size)
{
    CallScope scope("ExpandEnvironmentStringsW", {{}, fromWide(source)});
    scope.call.sizeIn = scope.call.sizeOut = size;
    if (scope.fault())
        return DWORD(scope.failure(*scope.fault()));
    if (!knowsMachine())
        return DWORD(scope.failure(ERROR_SUCCESS));
    const auto text = expanded(scope.call.value);
    if (!text)
        return DWORD(scope.failure(text.error));
    const DWORD needed = countedUnits(*text);
    if (needed <= size)
        copyCounted(*text, buffer);
    return scope.success(needed);
}

BOOL SHGetSpecialFolderPathW(HWND owner, LPWSTR path, int folder, BOOL create)
{
    CallScope scope("SHGetSpecialFolderPathW", {{}, QString::number(folder)});
    if (owner)
        scope.call.given += QStringLiteral("owner");
    scope.call.access = quint32(create);
    if (scope.fault())
        return scope.failure(*scope.fault());
    const auto answer = machineInUse().system.SHGetSpecialFolderPath.value(folder);
    if (!answer)
        return scope.failure(answer.error);
    copyWide(answer->left(MAX_PATH - 1), path); // the call requires a buffer of MAX_PATH
    return scope.success(TRUE);
}

// Only %c is implemented.
int wsprintfW(LPWSTR buffer, LPCWSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    QString text;
    for (const WCHAR *c = format; *c; ++c) {
        if (c[0] == '%' && c[1] == 'c') {
            text += QChar(ushort(va_arg(arguments, int)));
            ++c;
        } else {
            Q_ASSERT_X(*c != '%', "wsprintfW", "only %c is simulated");
            text += QChar(ushort(*c));
        }
    }
    va_end(arguments);
    CallScope scope("wsprintfW", {{}, text});
    copyWide(text, buffer);
    return scope.success(text.size());
}
