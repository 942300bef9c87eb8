#include "allocations.h"

#include <dlfcn.h>

namespace bench {

Allocations *allocations()
{
    static const auto counters = reinterpret_cast<Allocations *(*)()>(dlsym(RTLD_DEFAULT, "bench_allocations"));
    return counters ? counters() : nullptr;
}

void startPeak()
{
    if (Allocations *counted = allocations())
        counted->peak = counted->peakMoved = counted->live;
}

} // namespace bench
