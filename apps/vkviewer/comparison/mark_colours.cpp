#include "mark_colours.h"

namespace {

QColor hueOf(LineChange change)
{
    switch (change) {
    case LineChange::Added:
        return QColor(40, 167, 69);
    case LineChange::Removed:
        return QColor(215, 58, 73);
    default:
        return QColor(219, 154, 4);
    }
}

int mixed(int a, int b, double share)
{
    return int(a * (1 - share) + b * share);
}

} // namespace

QColor markColour(const QPalette &palette, LineChange change, bool isStrong)
{
    const QColor &base = palette.color(QPalette::Base);
    if (change == LineChange::Same)
        return base;
    const QColor hue = hueOf(change);
    const double share = isStrong ? 0.4 : 0.18;
    return QColor(mixed(base.red(), hue.red(), share), mixed(base.green(), hue.green(), share), mixed(base.blue(), hue.blue(), share));
}
