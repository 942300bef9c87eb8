// The system's time.h and the two functions of the Windows run-time library that this
// project uses, for systems other than Windows.
#pragma GCC system_header // #include_next is an extension
#include_next <time.h>

#ifndef VKSYSTEMINFO_SIMULATED_TIME_H
#  define VKSYSTEMINFO_SIMULATED_TIME_H

#  include <stddef.h>
#  include <stdint.h>

typedef int32_t __time32_t;

#  ifdef __cplusplus
extern "C" {
#  endif
int _localtime32_s(struct tm *result, const __time32_t *time);
int asctime_s(char *buffer, size_t size, const struct tm *time);
#  ifdef __cplusplus
}
#  endif

#endif
