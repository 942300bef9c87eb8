// Instructions, where the program runs under callgrind with --instr-atstart=no.
#pragma once

#include <QtCore/QByteArray>
#include <functional>

namespace bench {

/// Whether somebody counts.
bool countsInstructions();

/// Runs \a run; callgrind writes a file whose "Trigger" is \a name. Merely runs it
/// where nobody counts.
void countInstructions(const QByteArray &name, const std::function<void()> &run);

} // namespace bench
