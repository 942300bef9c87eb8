#include "fixed_font.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>
#include <algorithm>

namespace {

/// QFontInfo::fixedPitch() tells only what a font says of itself, which not every fixed one does.
bool isFixed(const QFont &font)
{
    const QFontMetricsF metrics(font);
    return qFuzzyCompare(metrics.horizontalAdvance(QLatin1Char('i')), metrics.horizontalAdvance(QLatin1Char('W')));
}

} // namespace

QFont fixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::TypeWriter);
    if (isFixed(font))
        return font;
    const QFontDatabase fonts; // the system names a font that it does not have
    const QStringList families = fonts.families(QFontDatabase::Latin);
    const auto fixed = std::find_if(families.begin(), families.end(), [&fonts](const QString &family) {
        return fonts.isFixedPitch(family) && fonts.isSmoothlyScalable(family);
    });
    if (fixed != families.end())
        font.setFamily(*fixed);
    return font;
}
