#include "call_scope.h"
#include "handle_table.h"
#include "text.h"

#include <QtCore/QtEndian>
#include <cstring>

namespace simulated {
namespace {

using machine::RegistryKey;
using machine::RegistryRoot;
using machine::RegistryValue;
using KeyPointer = std::shared_ptr<RegistryKey>;

/// Not null, and never the handle of an open key.
const HKEY deadKey = reinterpret_cast<HKEY>(quintptr(0xdead));

quintptr numberOf(HKEY key)
{
    return reinterpret_cast<quintptr>(key);
}

std::optional<RegistryRoot> predefinedRoot(HKEY key)
{
    if (key == HKEY_CLASSES_ROOT)
        return RegistryRoot::ClassesRoot;
    if (key == HKEY_CURRENT_USER)
        return RegistryRoot::CurrentUser;
    if (key == HKEY_LOCAL_MACHINE)
        return RegistryRoot::LocalMachine;
    if (key == HKEY_USERS)
        return RegistryRoot::Users;
    return std::nullopt;
}

struct OpenKey
{
    KeyPointer key; // null: no such handle
    QString path;
};

OpenKey openKey(HKEY handle, const char *use)
{
    if (const auto root = predefinedRoot(handle)) {
        const KeyPointer key = machineInUse().registry.root(*root);
        return {key, key->name()};
    }
    const Handle *known = handles().find(numberOf(handle), HandleKind::Key, use);
    return known ? OpenKey {known->key, known->openedFor} : OpenKey {};
}

bool isText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

/// What differs between the A and the W form of a call.
struct Ansi
{
    using Char = char;
    static constexpr DWORD unitSize = 1;

    static QString text(const Char *text) { return text ? ansi().toUtf16(QByteArray(text)) : QString(); }
    static QByteArray name(const QString &name) { return ansi().fromUtf16(name); }

    static QByteArray data(const RegistryValue &value)
    {
        if (!isText(value.type))
            return value.data;
        QString text;
        for (int i = 0; i + 1 < value.data.size(); i += 2)
            text += QChar(qFromLittleEndian<quint16>(value.data.constData() + i));
        return ansi().fromUtf16(text);
    }
};

struct Wide
{
    using Char = WCHAR;
    static constexpr DWORD unitSize = 2;

    static QString text(const Char *text) { return fromWide(text); }
    static QByteArray name(const QString &name)
    {
        return QByteArray(reinterpret_cast<const char *>(name.utf16()), 2 * name.size());
    }
    static QByteArray data(const RegistryValue &value) { return value.data; }
};

/// Copies the data. Appends a terminator to text without one if the buffer has room.
template <typename Form>
void store(const QByteArray &data, DWORD type, LPBYTE buffer, DWORD room)
{
    const DWORD size = DWORD(data.size());
    std::memcpy(buffer, data.constData(), size);
    if (!isText(type) || size == 0 || room - size < Form::unitSize)
        return;
    const bool terminated = size >= Form::unitSize
        && std::all_of(data.end() - int(Form::unitSize), data.end(), [](char byte) { return byte == 0; });
    if (!terminated)
        std::memset(buffer + size, 0, Form::unitSize);
}

/// Returns type, size and data of a value as RegQueryValueEx does.
template <typename Form>
DWORD readValue(const RegistryValue &value, LPDWORD type, LPBYTE data, LPDWORD size)
{
    const QByteArray stored = Form::data(value);
    const DWORD room = size ? *size : 0;
    if (type)
        *type = value.type;
    if (size)
        *size = DWORD(stored.size());
    if (!data)
        return ERROR_SUCCESS;
    if (DWORD(stored.size()) > room)
        return ERROR_MORE_DATA;
    store<Form>(stored, value.type, data, room);
    return ERROR_SUCCESS;
}

template <typename Form>
LSTATUS openKeyEx(const char *callName, HKEY key, const typename Form::Char *subKey, DWORD options, REGSAM access,
                  PHKEY result)
{
    BegunCall begun(callName);
    const QString path = Form::text(subKey);
    const OpenKey parent = openKey(key, callName);
    const QString fullPath = path.isEmpty() ? parent.path : parent.path + QLatin1Char('\\') + path;
    CallScope scope(begun, {fullPath, options ? QString::number(options) : QString()});
    scope.call.access = access;
    if (!result)
        return scope.status(ERROR_INVALID_PARAMETER);
    *result = nullptr;
    if (scope.fault())
        return scope.status(*scope.fault());
    if (!parent.key)
        return scope.status(ERROR_INVALID_HANDLE);
    if (path.startsWith(QLatin1Char('\\')))
        return scope.status(ERROR_BAD_PATHNAME);
    const KeyPointer found = machine::findKey(parent.key, path);
    if (!found)
        return scope.status(ERROR_FILE_NOT_FOUND);
    if (machine::isDenied(parent.key, path))
        return scope.status(ERROR_ACCESS_DENIED);
    *result = scope.lateFault() ? deadKey
                                : reinterpret_cast<HKEY>(handles().add({HandleKind::Key, scope.call.key, found}));
    return scope.status(ERROR_SUCCESS);
}

template <typename Form>
LSTATUS queryValueEx(const char *callName, HKEY key, const typename Form::Char *name, LPDWORD type, LPBYTE data,
                     LPDWORD size)
{
    BegunCall begun(callName);
    const OpenKey open = openKey(key, callName);
    CallScope scope(begun, {open.path, Form::text(name)});
    scope.call.sizeIn = scope.call.sizeOut = size ? *size : 0;
    if (scope.fault())
        return scope.status(*scope.fault());
    if (!open.key)
        return scope.status(ERROR_INVALID_HANDLE);
    if (data && !size)
        return scope.status(ERROR_INVALID_PARAMETER);
    const RegistryValue *value = open.key->findValue(scope.call.value);
    if (!value) {
        if (size && !data) // the caller queries the size only
            scope.call.sizeOut = *size = 0;
        return scope.status(ERROR_FILE_NOT_FOUND);
    }
    const DWORD error = readValue<Form>(*value, type, data, size);
    scope.call.sizeOut = size ? *size : 0;
    return scope.status(error);
}

/// Copies an enumerated name with its terminator. Returns ERROR_MORE_DATA if it does not fit.
template <typename Form>
DWORD copyName(const QString &name, typename Form::Char *buffer, DWORD room)
{
    const QByteArray bytes = Form::name(name);
    const DWORD length = DWORD(bytes.size()) / Form::unitSize;
    if (room <= length)
        return ERROR_MORE_DATA;
    std::memcpy(buffer, bytes.constData(), std::size_t(bytes.size()));
    buffer[length] = 0;
    return ERROR_SUCCESS;
}

template <typename Form>
LSTATUS enumKey(const char *callName, HKEY key, DWORD index, typename Form::Char *name, DWORD room, LPDWORD length)
{
    BegunCall begun(callName);
    const OpenKey open = openKey(key, callName);
    CallScope scope(begun, {open.path, QString::number(index)});
    scope.call.sizeIn = scope.call.sizeOut = room;
    if (scope.fault())
        return scope.status(*scope.fault());
    if (!open.key)
        return scope.status(ERROR_INVALID_HANDLE);
    const KeyPointer subKey = open.key->subKeyAt(index);
    if (!subKey)
        return scope.status(ERROR_NO_MORE_ITEMS);
    const DWORD error = copyName<Form>(subKey->name(), name, room);
    if (error == ERROR_SUCCESS && length) {
        *length = DWORD(Form::name(subKey->name()).size()) / Form::unitSize;
        scope.call.sizeOut = *length;
    }
    return scope.status(error);
}

template <typename Form>
LSTATUS enumValue(const char *callName, HKEY key, DWORD index, typename Form::Char *name, LPDWORD nameSize,
                  LPDWORD type, LPBYTE data, LPDWORD size)
{
    BegunCall begun(callName);
    const OpenKey open = openKey(key, callName);
    CallScope scope(begun, {open.path, QString::number(index)});
    scope.call.sizeIn = scope.call.sizeOut = size ? *size : 0;
    if (scope.fault())
        return scope.status(*scope.fault());
    if (!open.key)
        return scope.status(ERROR_INVALID_HANDLE);
    if (!name || !nameSize || (data && !size))
        return scope.status(ERROR_INVALID_PARAMETER);
    if (index >= open.key->values().size())
        return scope.status(ERROR_NO_MORE_ITEMS);
    const RegistryValue &value = open.key->values()[index];
    const QByteArray nameBytes = Form::name(value.name);
    if (*nameSize <= DWORD(nameBytes.size()) / Form::unitSize)
        return scope.status(ERROR_MORE_DATA);
    const DWORD error = readValue<Form>(value, type, data, size);
    scope.call.sizeOut = size ? *size : 0;
    if (error == ERROR_SUCCESS) {
        copyName<Form>(value.name, name, *nameSize);
        *nameSize = DWORD(nameBytes.size()) / Form::unitSize;
    }
    return scope.status(error);
}

} // namespace
} // namespace simulated

using namespace simulated;

LSTATUS RegOpenKeyExA(HKEY key, LPCSTR subKey, DWORD options, REGSAM access, PHKEY result)
{
    return openKeyEx<Ansi>("RegOpenKeyExA", key, subKey, options, access, result);
}

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result)
{
    return openKeyEx<Wide>("RegOpenKeyExW", key, subKey, options, access, result);
}

LSTATUS RegCloseKey(HKEY key)
{
    BegunCall begun("RegCloseKey");
    const bool predefined = predefinedRoot(key).has_value();
    CallScope scope(begun, {predefined ? QString() : openKey(key, "RegCloseKey").path, {}});
    if (predefined)
        return scope.status(scope.anyFault().value_or(ERROR_SUCCESS));
    // A failing close still invalidates the handle.
    const bool closed = !scope.call.key.isEmpty() && handles().remove(numberOf(key), HandleKind::Key, "RegCloseKey");
    return scope.status(scope.anyFault().value_or(closed ? ERROR_SUCCESS : ERROR_INVALID_HANDLE));
}

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size)
{
    return queryValueEx<Ansi>("RegQueryValueExA", key, name, type, data, size);
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size)
{
    return queryValueEx<Wide>("RegQueryValueExW", key, name, type, data, size);
}

LSTATUS RegEnumKeyExA(HKEY key, DWORD index, LPSTR name, LPDWORD nameSize, LPDWORD, LPSTR, LPDWORD, PFILETIME)
{
    return enumKey<Ansi>("RegEnumKeyExA", key, index, name, *nameSize, nameSize);
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD, LPWSTR, LPDWORD, PFILETIME)
{
    return enumKey<Wide>("RegEnumKeyExW", key, index, name, *nameSize, nameSize);
}

LSTATUS RegEnumKeyA(HKEY key, DWORD index, LPSTR name, DWORD nameSize)
{
    return enumKey<Ansi>("RegEnumKeyA", key, index, name, nameSize, nullptr);
}

LSTATUS RegEnumKeyW(HKEY key, DWORD index, LPWSTR name, DWORD nameSize)
{
    return enumKey<Wide>("RegEnumKeyW", key, index, name, nameSize, nullptr);
}

LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD nameSize, LPDWORD, LPDWORD type, LPBYTE data,
                      LPDWORD size)
{
    return enumValue<Ansi>("RegEnumValueA", key, index, name, nameSize, type, data, size);
}

LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD, LPDWORD type, LPBYTE data,
                      LPDWORD size)
{
    return enumValue<Wide>("RegEnumValueW", key, index, name, nameSize, type, data, size);
}

BOOL GetSystemRegistryQuota(PDWORD allowed, PDWORD used)
{
    CallScope scope("GetSystemRegistryQuota", {});
    const auto &quota = machineInUse().system.GetSystemRegistryQuota;
    if (scope.fault())
        return scope.failure(*scope.fault());
    if (!quota)
        return scope.failure(quota.error);
    *allowed = quota->allowed;
    *used = quota->used;
    return scope.success(TRUE);
}
