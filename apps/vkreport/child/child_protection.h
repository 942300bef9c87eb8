// What protects the user from a child, and the child from its surroundings. One file for each platform.
#pragma once

#include <QtCore/QString>

/// Called first in a child:
/// - The child ends when its parent ends.
/// - A crash shows no dialog box and writes no file.
/// - Standard output becomes standard error, so that drivers cannot write between the frames. Returns a descriptor of the
///   original standard output.
/// - Windows: libraries are not loaded from the current folder.
int protectChild();

/// Ends the process at once, without running destructors.
[[noreturn]] void endProcess(int exitCode);

/// The absolute path of this program. Needs no application object.
QString programFile();
