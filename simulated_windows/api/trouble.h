// Makes trouble happen.
#pragma once

#include "simulated_windows.h"

namespace simulated {

/// Returns only after a sleep.
void happen(TroubleKind kind);

} // namespace simulated
