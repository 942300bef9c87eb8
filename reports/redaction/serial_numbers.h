// Serial numbers in the names of devices.
#pragma once

#include "finding.h"

namespace velkor {
namespace Reports {

/// Appends what follows "S/N", "SN:" and "Serial". If \a isDevice, \a text is the name of a device: then words that look like a
/// serial number and not like a model are added, too.
void findSerialNumbers(std::string_view text, bool isDevice, Findings &findings);

} // namespace Reports
} // namespace velkor
