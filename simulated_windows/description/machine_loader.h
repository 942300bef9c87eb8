// Loads a machine description, a folder with registry.reg and system.json.
#pragma once

#include "machine.h"

namespace machine {

/// The machine that \a folder describes. A file that is missing there means that
/// Windows has nothing to say. On failure (no such folder, a malformed file)
/// nothing, and \a error is one line that names file and line.
std::optional<Machine> loadMachine(const QString &folder, QString &error);

} // namespace machine
