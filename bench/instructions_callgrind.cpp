#include "instructions.h"

#include <valgrind/callgrind.h>

namespace bench {

bool countsInstructions()
{
    return RUNNING_ON_VALGRIND > 0;
}

void countInstructions(const QByteArray &name, const std::function<void()> &run)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    run();
    CALLGRIND_DUMP_STATS_AT(name.constData());
    CALLGRIND_STOP_INSTRUMENTATION;
}

} // namespace bench
