// Owner of a registry key, and the buffers that values are read into.
//
// Failure rules, for everything here: a key that cannot be opened is false; a value
// that cannot be read leaves the buffer as it was and the query is false. The type
// of a value is not looked at. Nothing is read beyond a buffer.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// Bytes given to every query of a text, and the size that each query starts with.
constexpr DWORD valueBufferSize = 2048;

/// An open key, closed when it goes. Opened by RegOpenKeyExA with the path as
/// Latin-1 bytes.
class RegistryKey
{
public:
    RegistryKey(HKEY root, const QString &path, REGSAM access = KEY_READ);
    ~RegistryKey();
    RegistryKey(const RegistryKey &) = delete;
    RegistryKey &operator=(const RegistryKey &) = delete;

    explicit operator bool() const { return m_key != nullptr; }
    HKEY get() const { return m_key; }
    /// Gives the key away: whoever takes it closes it, or does not.
    HKEY release();

private:
    HKEY m_key = nullptr;
};

/// 8-bit text. Starts zeroed; what a shorter value leaves behind it stays there for
/// as long as the buffer lives, and shows where that value has no terminator.
class TextBuffer
{
public:
    /// RegQueryValueExA with the size set to that of the buffer.
    bool query(HKEY key, const char *valueName);
    /// The same with the size that the caller brings, which is updated.
    bool query(HKEY key, const char *valueName, DWORD &size);
    /// RegEnumKeyExA.
    bool enumerateKey(HKEY key, DWORD index);

    /// As the last successful query returned it.
    DWORD size() const { return m_size; }
    const char *data() const { return m_bytes; }
    char *data() { return m_bytes; }
    /// Up to the first null, as UTF-8.
    QString text() const { return QString::fromUtf8(m_bytes); }

private:
    char m_bytes[valueBufferSize + 1] = {}; // one more, never written: text always ends
    DWORD m_size = 0;
};

/// UTF-16 text of one value. Reads as if it was zeroed at the start: the query stores
/// zeros behind the data instead, which is less than the buffer.
class WideTextBuffer
{
public:
    WideTextBuffer() { m_units[0] = 0; }
    /// RegQueryValueExW with the size set to that of the buffer in bytes.
    bool query(HKEY key, const wchar_t *valueName);

    DWORD type() const { return m_type; }
    /// In bytes, as the last successful query returned it.
    DWORD size() const { return m_size; }
    const wchar_t *data() const { return m_units; }
    /// Up to the first null.
    QString text() const;
    /// The same as a view of the buffer, for as long as that is left alone.
    QStringView view() const;
    /// Exactly so many units, nulls included.
    QString text(DWORD units) const;

private:
    // Twice what is read, and one more: a walk that takes a count of bytes for one
    // of units ends inside.
    wchar_t m_units[valueBufferSize + 1];
    DWORD m_size = 0;
    DWORD m_type = 0;
};

/// A 32-bit number. Starts as 0; a value of fewer bytes sets its low ones only.
class NumberBuffer
{
public:
    /// RegQueryValueExA with a size of 4.
    bool query(HKEY key, const char *valueName);
    /// RegQueryValueExW with a size of 4.
    bool query(HKEY key, const wchar_t *valueName);

    quint32 value() const { return m_value; }

private:
    DWORD m_value = 0;
};

/// UTF-16 text of a platform buffer up to its first null, \a size units at most.
/// A byte-order mark is a character like any other.
QString wideText(const wchar_t *buffer, DWORD size);
/// Exactly \a units units of a platform buffer.
QString wideUnits(const wchar_t *buffer, DWORD units);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
