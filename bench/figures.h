// Lines that scripts/bench collects: what, which side, state, unit, value.
#pragma once

#include <QtCore/QByteArray>

namespace bench {

/// Writes one to standard output, with tabulators between.
void writeFigure(const QByteArray &subject, const QByteArray &side, const QByteArray &state, const QByteArray &unit,
                 double value);

} // namespace bench
