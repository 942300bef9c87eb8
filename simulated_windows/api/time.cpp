#include "call_scope.h"

#include <cerrno>
#include <ctime>
#include <time.h>

using namespace simulated;

int _localtime32_s(struct tm *result, const __time32_t *time)
{
    CallScope scope("_localtime32_s");
    scope.call.value = QString::number(*time);
    if (scope.fault() || *time < 0)
        return scope.success(EINVAL);
    const time_t local = time_t(*time) - time_t(machineInUse().system.timeZone) * 60;
    gmtime_r(&local, result);
    return 0;
}

int asctime_s(char *buffer, size_t size, const struct tm *time)
{
    CallScope scope("asctime_s");
    scope.call.sizeIn = scope.call.sizeOut = size;
    constexpr std::size_t needed = 26;
    if (scope.fault() || size < needed)
        return scope.success(scope.fault() ? EINVAL : ERANGE);
    static const char days[] = "SunMonTueWedThuFriSat";
    static const char months[] = "JanFebMarAprMayJunJulAugSepOctNovDec";
    qsnprintf(buffer, int(size), "%.3s %.3s %02d %02d:%02d:%02d %04d\n", days + 3 * time->tm_wday,
              months + 3 * time->tm_mon, time->tm_mday, time->tm_hour, time->tm_min, time->tm_sec,
              time->tm_year + 1900);
    return 0;
}
