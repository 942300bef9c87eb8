#include "win/lease_time.h"

#include "report/text.h"

#include <time.h>
#include <windows.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString formatLeaseTime(qint64 time)
{
    constexpr std::size_t bufferSize = 64;              // asctime_s needs 26
    const auto seconds = static_cast<__time32_t>(time); // Quirk: the low 32 bits only.
    struct tm local = {};
    char text[bufferSize] = {};
    if (_localtime32_s(&local, &seconds) == 0 && asctime_s(text, sizeof text, &local) == 0)
        return QString::fromUtf8(text);
    return QStringLiteral("0x") + QString::number(time, 16) + newline;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
