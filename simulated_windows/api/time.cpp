#include "call_scope.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <time.h>

using namespace simulated;

namespace {

constexpr int tm::*fields[] = {&tm::tm_sec, &tm::tm_min, &tm::tm_hour, &tm::tm_mday, &tm::tm_mon,
                               &tm::tm_year, &tm::tm_wday, &tm::tm_yday, &tm::tm_isdst};

bool isIn(int value, int first, int last)
{
    return value >= first && value <= last;
}

bool isTime(const struct tm &time)
{
    return isIn(time.tm_sec, 0, 59) && isIn(time.tm_min, 0, 59) && isIn(time.tm_hour, 0, 23)
        && isIn(time.tm_mday, 1, 31) && isIn(time.tm_mon, 0, 11) && isIn(time.tm_year, 0, 8099)
        && isIn(time.tm_wday, 0, 6);
}

/// What the run-time library does with the fields on failure
void clear(struct tm &time)
{
    time = {};
    for (int tm::*field : fields)
        time.*field = -1;
}

} // namespace

int _localtime32_s(struct tm *result, const __time32_t *time)
{
    CallScope scope("_localtime32_s", {{}, QString::number(*time)});
    if (scope.fault() || *time < 0) {
        clear(*result);
        return int(scope.status(EINVAL));
    }
    const time_t local = time_t(*time) - time_t(machineInUse().system.timeZone) * 60;
    gmtime_r(&local, result);
    if (!isTime(*result)) { // the described time zone moves it out of the years of the run-time library
        clear(*result);
        return int(scope.status(EINVAL));
    }
    return int(scope.status(scope.lateFault() ? EINVAL : 0));
}

int asctime_s(char *buffer, size_t size, const struct tm *time)
{
    CallScope scope("asctime_s", {});
    scope.call.sizeIn = scope.call.sizeOut = size;
    constexpr std::size_t needed = 26;
    // The invalid-parameter handler of the Universal C run-time library ends the process; the older msvcrt returns EINVAL.
    if (!buffer || size < needed || !time || !isTime(*time)) {
        std::fputs("asctime_s: an invalid parameter ends the process\n", stderr);
        std::abort();
    }
    *buffer = 0;
    if (scope.fault())
        return int(scope.status(EINVAL));
    static const char days[] = "SunMonTueWedThuFriSat";
    static const char months[] = "JanFebMarAprMayJunJulAugSepOctNovDec";
    // The Universal C run-time library writes the day with "%2d", the older msvcrt with "%02d".
    qsnprintf(buffer, int(size), "%.3s %.3s %2d %02d:%02d:%02d %04d\n", days + 3 * std::size_t(time->tm_wday),
              months + 3 * std::size_t(time->tm_mon), time->tm_mday, time->tm_hour, time->tm_min, time->tm_sec,
              time->tm_year + 1900);
    return int(scope.status(scope.lateFault() ? EINVAL : 0));
}
