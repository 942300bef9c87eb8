#include "win/format_byte_size.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

struct Unit
{
    int shift;
    const char *format;
};

constexpr Unit units[] = {
    {30, "%1.%2 GByte"},
    {20, "%1.%2 MByte"},
    {10, "%1.%2 KByte"},
};

} // namespace

QString formatByteSize(quint64 bytes)
{
    for (const Unit &unit : units) {
        const quint64 whole = bytes >> unit.shift;
        if (whole == 0)
            continue;
        const quint64 tenths = ((bytes >> (unit.shift - 10)) % 1024) * 10 / 1024;
        return QString::fromLatin1(unit.format).arg(whole).arg(tenths);
    }
    return QStringLiteral("%1 Byte").arg(bytes);
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
