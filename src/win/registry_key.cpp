#include "win/registry_key.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

RegistryKey openKey(HKEY root, const QString &path, REGSAM access)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.toLatin1().constData(), 0, access, &key) != ERROR_SUCCESS)
        return nullptr;
    return RegistryKey(key);
}

bool TextBuffer::query(HKEY key, const char *valueName)
{
    DWORD size = valueBufferSize;
    return query(key, valueName, size);
}

bool TextBuffer::query(HKEY key, const char *valueName, DWORD &size)
{
    size = std::min(size, valueBufferSize); // a failed query may have stored the size it needs
    if (RegQueryValueExA(key, valueName, nullptr, nullptr, reinterpret_cast<LPBYTE>(m_bytes), &size) != ERROR_SUCCESS)
        return false;
    m_size = size;
    return true;
}

bool TextBuffer::enumerateKey(HKEY key, DWORD index)
{
    DWORD size = valueBufferSize;
    return RegEnumKeyExA(key, index, m_bytes, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

bool TextBuffer::enumerateKeyByRegEnumKeyA(HKEY key, DWORD index)
{
    return RegEnumKeyA(key, index, m_bytes, valueBufferSize) == ERROR_SUCCESS;
}

bool enumerateValue(HKEY key, DWORD index, TextBuffer &name, TextBuffer &data)
{
    DWORD nameSize = valueBufferSize;
    DWORD dataSize = valueBufferSize;
    DWORD type = 0;
    return RegEnumValueA(key, index, name.m_bytes, &nameSize, nullptr, &type, reinterpret_cast<LPBYTE>(data.m_bytes),
                         &dataSize)
        == ERROR_SUCCESS;
}

bool WideTextBuffer::query(HKEY key, const wchar_t *valueName)
{
    DWORD size = valueBufferSize;
    DWORD type = 0;
    if (RegQueryValueExW(key, valueName, nullptr, &type, reinterpret_cast<LPBYTE>(m_units), &size) != ERROR_SUCCESS)
        return false;
    m_size = size;
    m_type = type;
    // Two nulls end a multi-string; the third unit makes up for an odd size.
    std::memset(reinterpret_cast<char *>(m_units) + size, 0, 3 * sizeof(wchar_t));
    return true;
}

QString WideTextBuffer::text() const
{
    return view().toString();
}

QStringView WideTextBuffer::view() const
{
    const wchar_t *const end = std::find(m_units, m_units + valueBufferSize / sizeof(wchar_t), L'\0');
    return QStringView(reinterpret_cast<const QChar *>(m_units), end - m_units);
}

QString WideTextBuffer::text(DWORD units) const
{
    return wideUnits(m_units, units);
}

bool WideNameBuffer::enumerateKey(HKEY key, DWORD index)
{
    DWORD nameSize = size;
    return RegEnumKeyExW(key, index, m_units, &nameSize, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

QString WideNameBuffer::text() const
{
    return wideText(m_units, size);
}

bool NumberBuffer::query(HKEY key, const char *valueName)
{
    DWORD size = sizeof m_value;
    return RegQueryValueExA(key, valueName, nullptr, nullptr, reinterpret_cast<LPBYTE>(&m_value), &size) == ERROR_SUCCESS;
}

bool NumberBuffer::query(HKEY key, const wchar_t *valueName)
{
    DWORD size = sizeof m_value;
    return RegQueryValueExW(key, valueName, nullptr, nullptr, reinterpret_cast<LPBYTE>(&m_value), &size) == ERROR_SUCCESS;
}

bool queryNumber64(HKEY key, const char *valueName, quint64 &number)
{
    DWORD size = sizeof number;
    return RegQueryValueExA(key, valueName, nullptr, nullptr, reinterpret_cast<LPBYTE>(&number), &size) == ERROR_SUCCESS;
}

QString wideText(const wchar_t *buffer, DWORD size)
{
    return wideUnits(buffer, DWORD(std::find(buffer, buffer + size, L'\0') - buffer));
}

QString wideUnits(const wchar_t *buffer, DWORD units)
{
    static_assert(sizeof(wchar_t) == sizeof(QChar), "a platform's UTF-16 unit is a QChar");
    // Not QString::fromUtf16(), which removes a byte-order mark.
    return QString(reinterpret_cast<const QChar *>(buffer), int(units));
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
