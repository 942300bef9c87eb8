#include "fixed_font.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <algorithm>

QFont fixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::TypeWriter);
    if (QFontInfo(font).fixedPitch())
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
