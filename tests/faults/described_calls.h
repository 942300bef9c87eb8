// The Windows calls of a report, answered from a description for a second time.
//
// Calls are counted, chosen ones fail, and the description may change before any of
// them. Nothing of the library and none of the simulated calls is used: a text that is
// made of these answers can be held against what the library writes.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace expected {

/// Where a call writes to. What it leaves alone stays; at the start all is zero.
struct Buffer
{
    QByteArray bytes = QByteArray(2 * 2048, 0);
    quint32 size = 0; // the in/out size as the last call left it
    quint32 type = 0;

    /// 8-bit text up to the first null.
    QString narrow() const { return QString::fromUtf8(bytes.constData()); }
    /// UTF-16 text up to the first null.
    QString wide() const;
    /// So many units of UTF-16.
    QString wide(quint32 units) const;
    /// The number of so many bytes.
    quint64 number(int width = 4) const;
};

enum class Form {
    Narrow,
    Wide,
};

struct Key
{
    std::shared_ptr<machine::RegistryKey> key; // null when it could not be opened
    QString path;

    explicit operator bool() const { return key != nullptr; }
};

struct Call
{
    const char *name;
    QString about; // key and value
};

class DescribedCalls
{
public:
    explicit DescribedCalls(machine::Machine &described) : machine(described) { }

    machine::Machine &machine;
    std::map<std::size_t, quint32> failures; // by the number of the call
    bool failuresWriteResults = false;       // a call that fails does everything else as if it succeeded
    std::function<void(std::size_t)> beforeCall;

    std::vector<Call> calls;
    QStringList openHandles;
    QStringList warnings;

    /// Counts a call; the error that it is to fail with.
    std::optional<quint32> begin(const char *name, const QString &key = QString(), const QString &value = QString());
    /// The same where the error does not matter.
    bool fails(const char *name, const QString &key = QString(), const QString &value = QString())
    {
        return begin(name, key, value).has_value();
    }
    /// Counts a call whose status nobody looks at; whether it writes its results.
    bool writes(const char *name, const QString &key = QString(), const QString &value = QString())
    {
        return !fails(name, key, value) || failuresWriteResults;
    }

    /// RegOpenKeyExA with a path that goes out as Latin-1.
    Key open(machine::RegistryRoot root, const QString &path);
    /// RegCloseKey.
    void close(const Key &key);
    /// RegQueryValueExA or RegQueryValueExW with room for so many bytes.
    bool query(Form form, const Key &key, const QString &name, Buffer &buffer, quint32 room = 2048);
    /// One of the calls that enumerate sub-keys, with room for so many units.
    bool enumerateKey(const char *call, Form form, const Key &key, int index, Buffer &name, int room = 2048);
    /// RegEnumValueA.
    bool enumerateValue(const Key &key, int index, Buffer &name, Buffer &data);
    /// GetSystemWindowsDirectoryW or GetSystemWow64DirectoryW: its result. \a buffer
    /// is written only when the path fits.
    quint32 directory(const char *call, const machine::Answer<QString> &path, QString &buffer);
};

} // namespace expected
