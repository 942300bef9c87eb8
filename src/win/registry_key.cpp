#include "win/registry_key.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

RegistryKey::RegistryKey(HKEY root, const QString &path, REGSAM access)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.toLatin1().constData(), 0, access, &key) == LSTATUS(ERROR_SUCCESS))
        m_key = key;
}

RegistryKey::~RegistryKey()
{
    if (m_key)
        RegCloseKey(m_key);
}

HKEY RegistryKey::release()
{
    const HKEY key = m_key;
    m_key = nullptr;
    return key;
}

bool TextBuffer::query(HKEY key, const char *valueName)
{
    DWORD size = valueBufferSize;
    return query(key, valueName, size);
}

bool TextBuffer::query(HKEY key, const char *valueName, DWORD &size)
{
    size = std::min(size, valueBufferSize); // a failed query may have left the size it would need
    if (RegQueryValueExA(key, valueName, nullptr, nullptr, reinterpret_cast<LPBYTE>(m_bytes), &size) != LSTATUS(ERROR_SUCCESS))
        return false;
    m_size = size;
    return true;
}

bool TextBuffer::enumerateKey(HKEY key, DWORD index)
{
    DWORD size = valueBufferSize;
    return RegEnumKeyExA(key, index, m_bytes, &size, nullptr, nullptr, nullptr, nullptr) == LSTATUS(ERROR_SUCCESS);
}

bool WideTextBuffer::query(HKEY key, const wchar_t *valueName)
{
    DWORD size = valueBufferSize;
    DWORD type = 0;
    if (RegQueryValueExW(key, valueName, nullptr, &type, reinterpret_cast<LPBYTE>(m_units), &size) != LSTATUS(ERROR_SUCCESS))
        return false;
    m_size = size;
    m_type = type;
    // Two units end every walk, one more makes up for a size that is odd.
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

bool NumberBuffer::query(HKEY key, const char *valueName)
{
    DWORD size = sizeof m_value;
    return RegQueryValueExA(key, valueName, nullptr, nullptr, reinterpret_cast<LPBYTE>(&m_value), &size) == LSTATUS(ERROR_SUCCESS);
}

bool NumberBuffer::query(HKEY key, const wchar_t *valueName)
{
    DWORD size = sizeof m_value;
    return RegQueryValueExW(key, valueName, nullptr, nullptr, reinterpret_cast<LPBYTE>(&m_value), &size) == LSTATUS(ERROR_SUCCESS);
}

QString wideText(const wchar_t *buffer, DWORD size)
{
    return wideUnits(buffer, DWORD(std::find(buffer, buffer + size, L'\0') - buffer));
}

QString wideUnits(const wchar_t *buffer, DWORD units)
{
    static_assert(sizeof(wchar_t) == sizeof(QChar), "a platform's UTF-16 unit is a QChar");
    // Not QString::fromUtf16(), which takes a byte-order mark away.
    return QString(reinterpret_cast<const QChar *>(buffer), int(units));
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
