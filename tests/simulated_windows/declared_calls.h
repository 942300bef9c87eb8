// The Windows calls that simulated_windows/include/ declares.
#pragma once

#include <QtCore/QStringList>

/// Their names. Ends the process if a header has a declaration that is not understood.
QStringList declaredCalls();
