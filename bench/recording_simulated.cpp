// Away from Windows the simulated one keeps a journal.

#include "recording.h"

#include "simulated_windows.h"

namespace bench {

std::vector<Call> recorded(const std::function<void()> &run)
{
    simulated::reset();
    run();
    std::vector<Call> calls;
    for (const simulated::Call &call : simulated::journal())
        calls.push_back({call.name, call.key, call.value, call.access, call.sizeIn, call.sizeOut, call.result});
    simulated::stopRecording();
    return calls;
}

} // namespace bench
