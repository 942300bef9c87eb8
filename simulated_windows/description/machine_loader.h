// Loads a machine description, a folder with registry.reg and system.json.
#pragma once

#include "machine.h"

namespace machine {

/// Loads the machine that \a folder describes. Without registry.reg the registry is empty; without
/// system.json the other calls fail. If the folder does not exist or a file is malformed, returns
/// nothing and sets \a error to one line that names the file and its line.
std::optional<Machine> loadMachine(const QString &folder, QString &error);

} // namespace machine
