#include "figures.h"

#include <cstdio>

namespace bench {

void writeFigure(const QByteArray &subject, const QByteArray &side, const QByteArray &state, const QByteArray &unit,
                 double value)
{
    std::printf("%s\t%s\t%s\t%s\t%.0f\n", subject.constData(), side.constData(), state.constData(), unit.constData(), value);
}

} // namespace bench
