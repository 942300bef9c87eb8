// A machine with more of one kind of thing.
#pragma once

#include "machine.h"

#include <vector>

namespace bench {

struct GrowthKind
{
    const char *name;
    /// Multiplies the things by \a factor. Returns how many there are then.
    std::size_t (*grow)(machine::Machine &machine, std::size_t factor);
};

/// The kinds of things in machines/workstation, and at last "all" of them but modules: the
/// report lists 1024 modules at most.
extern const std::vector<GrowthKind> growthKinds;

} // namespace bench
