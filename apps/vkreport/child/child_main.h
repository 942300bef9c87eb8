// What a child of vkreport does.
#pragma once

#include "module.h"

#include <QtCore/QString>

/// The first argument of a child. The second is the module, then a platform plug-in may follow, then the parts:
/// vkreport --child sections -platform minimal memoryInfo diskInformation
constexpr char childArgument[] = "--child";
constexpr char platformArgument[] = "-platform";

namespace ModuleName {

constexpr char library[] = "library";
constexpr char sections[] = "sections";

} // namespace ModuleName

/// Loads a module. Returns null, and a message for the user, if that is not possible.
RunModule loadModule(const QString &name, QString &error);

/// main() of a child. Returns if it could not begin; otherwise the process ends.
int runChild(int argc, char **argv);
