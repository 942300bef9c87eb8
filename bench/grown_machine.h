// machines/workstation with more of everything.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <vector>

namespace bench {

/// What there can be more of.
struct GrowthKind
{
    const char *name;
    /// Multiplies the items by \a factor; how many there are then.
    std::size_t (*grow)(machine::Machine &machine, std::size_t factor);
};

/// "classes", "drivers", "devices", "products", "display adapters",
/// "network adapters", "modules" (1024 at most, as the report lists no more), "all" (but
/// the modules).
const std::vector<GrowthKind> &growthKinds();

} // namespace bench
