// Owner of a registry key, and the buffers that values and names are read into. Sections
// read the registry through them only.
//
// Failure rules: a key that cannot be opened is null; a query that fails returns false and
// leaves the buffer unchanged. The type of a value is not checked. Nothing is read beyond
// a buffer.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <memory>
#include <type_traits>
#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// Size in bytes of every text buffer, and the initial size of each query.
constexpr DWORD valueBufferSize = 2048;

struct KeyCloser
{
    void operator()(HKEY key) const { RegCloseKey(key); }
};

/// Owns an open key. release() leaves it open.
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

/// RegOpenKeyExA with \a path as Latin-1 bytes.
RegistryKey openKey(HKEY root, const QString &path, REGSAM access = KEY_READ);

/// 8-bit text. Zeroed at construction only. Quirk: a shorter value leaves the end of the
/// previous value in the buffer, and that end shows if the shorter value has no terminator.
class TextBuffer
{
public:
    /// RegQueryValueExA with the size of the buffer.
    bool query(HKEY key, const char *valueName);
    /// RegQueryValueExA with \a size, which is updated.
    bool query(HKEY key, const char *valueName, DWORD &size);
    /// RegEnumKeyExA.
    bool enumerateKey(HKEY key, DWORD index);
    /// RegEnumKeyA, which does not return the size.
    bool enumerateKeyByRegEnumKeyA(HKEY key, DWORD index);

    /// The size that the last successful query returned.
    DWORD size() const { return m_size; }
    const char *data() const { return m_bytes; }
    /// Up to the first null, as UTF-8.
    QString text() const { return QString::fromUtf8(m_bytes); }

private:
    friend bool enumerateValue(HKEY key, DWORD index, TextBuffer &name, TextBuffer &data);

    char m_bytes[valueBufferSize + 1] = {}; // the last one is never written: a terminator
    DWORD m_size = 0;
};

/// RegEnumValueA with the sizes of both buffers.
bool enumerateValue(HKEY key, DWORD index, TextBuffer &name, TextBuffer &data);

/// UTF-16 text of one value. Not zeroed, for speed; query() terminates the data instead.
class WideTextBuffer
{
public:
    WideTextBuffer() { m_units[0] = 0; }
    /// RegQueryValueExW with the size of the buffer in bytes.
    bool query(HKEY key, const wchar_t *valueName);

    DWORD type() const { return m_type; }
    /// In bytes, as the last successful query returned it.
    DWORD size() const { return m_size; }
    const wchar_t *data() const { return m_units; }
    /// Up to the first null.
    QString text() const;
    /// Up to the first null, as a view of the buffer.
    QStringView view() const;
    /// Exactly \a units units, nulls included.
    QString text(DWORD units) const;

private:
    // Twice the size that is read: parsers treat byte counts as units.
    wchar_t m_units[valueBufferSize + 1];
    DWORD m_size = 0;
    DWORD m_type = 0;
};

/// Name of a sub-key in UTF-16.
class WideNameBuffer
{
public:
    /// RegEnumKeyExW.
    bool enumerateKey(HKEY key, DWORD index);

    const wchar_t *data() const { return m_units; }
    /// Up to the first null.
    QString text() const;

private:
    static constexpr DWORD size = 1024; // in units

    wchar_t m_units[size] = {};
};

/// A 32-bit number, 0 at first. Quirk: a value of fewer bytes overwrites the low bytes only.
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

/// RegQueryValueExA with a size of 8. A value of fewer bytes overwrites the low bytes of
/// \a number only.
bool queryNumber64(HKEY key, const char *valueName, quint64 &number);

/// UTF-16 text of a platform buffer up to its first null, at most \a size units.
/// A byte-order mark is a character like any other.
QString wideText(const wchar_t *buffer, DWORD size);
/// Exactly \a units units of a platform buffer.
QString wideUnits(const wchar_t *buffer, DWORD units);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
