#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <cmath>

namespace velkor {
namespace SystemInfo {
namespace {

constexpr double millimetresPerInch = 25.4;

QString sizeLines(const QSizeF &millimetres)
{
    const double width = millimetres.width();
    const double height = millimetres.height();
    const double diagonal = std::sqrt(width * width + height * height);
    return QStringLiteral("  PhysicalSize (width x height): %1mm x %2mm  %3inch x %4inch")
               .arg(width)
               .arg(height)
               .arg(width / millimetresPerInch)
               .arg(height / millimetresPerInch)
        + newline
        + QStringLiteral("                diagonal: %1mm %2inch").arg(diagonal).arg(diagonal / millimetresPerInch) + newline;
}

// Orientations are shown as the numbers of Qt::ScreenOrientation.
QString screenBlock(const QScreen &screen, int number)
{
    return QStringLiteral("#%1").arg(number) + newline
        + QStringLiteral("  Name: %1").arg(screen.name()) + newline
        + QStringLiteral("  Manufacturer: %1").arg(screen.manufacturer()) + newline
        + QStringLiteral("  Physical DPI x: %1  y: %2").arg(screen.physicalDotsPerInchX()).arg(screen.physicalDotsPerInchY()) + newline
        + QStringLiteral("  Logical  DPI x: %1  y: %2").arg(screen.logicalDotsPerInchX()).arg(screen.logicalDotsPerInchY()) + newline
        + QStringLiteral("  devicePixelRatio: %1").arg(screen.devicePixelRatio()) + newline
        + QStringLiteral("  RefreshRate: %1 Hz").arg(screen.refreshRate()) + newline
        + sizeLines(screen.physicalSize())
        + QStringLiteral("  Size (width x height): %1 x %2").arg(screen.size().width()).arg(screen.size().height()) + newline
        + QStringLiteral("  Color depth: %1").arg(screen.depth()) + newline
        + QStringLiteral("  Orientation: %1").arg(int(screen.orientation())) + newline
        + QStringLiteral("  Native Orientation: %1").arg(int(screen.nativeOrientation())) + newline
        + QStringLiteral("  Primary Orientation: %1").arg(int(screen.primaryOrientation())) + newline;
}

} // namespace

QString qtScreens()
{
    QString text = QStringLiteral("QScreen (hardware)") + newline;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (int i = 0; i < screens.size(); ++i)
        text += screenBlock(*screens.at(i), i + 1);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
