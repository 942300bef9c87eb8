// Makes recorded calls again, and does nothing else.
#pragma once

#include "recordings.h"

namespace bench {

/// Returns a function that makes \a calls with the same arguments. makeCallList() converts the
/// arguments; the function only passes them. It passes the sections' buffer sizes and neither
/// clears nor reads a buffer. It closes and frees what the sections close and free.
std::function<void()> makeCallList(const Calls &calls);

} // namespace bench
