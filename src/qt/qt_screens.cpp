#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <cmath>

namespace velkor {
namespace SystemInfo {
namespace {

constexpr double millimetresPerInch = 25.4;

void appendSizeLines(QString &text, const QSizeF &millimetres)
{
    const double width = millimetres.width();
    const double height = millimetres.height();
    const double diagonal = std::sqrt(width * width + height * height);
    const QString size = QStringLiteral("  PhysicalSize (width x height): %1mm x %2mm  %3inch x %4inch")
                             .arg(width)
                             .arg(height)
                             .arg(width / millimetresPerInch)
                             .arg(height / millimetresPerInch);
    appendLine(text, size);
    const QString diagonalLine = QStringLiteral("                diagonal: %1mm %2inch");
    appendLine(text, diagonalLine.arg(diagonal).arg(diagonal / millimetresPerInch));
}

/// Quirk: orientations are numbers of Qt::ScreenOrientation.
void appendScreenBlock(QString &text, const QScreen &screen, int number)
{
    const QString physicalDpi = QStringLiteral("  Physical DPI x: %1  y: %2");
    const QString logicalDpi = QStringLiteral("  Logical  DPI x: %1  y: %2");
    const QString size = QStringLiteral("  Size (width x height): %1 x %2");
    appendLine(text, QStringLiteral("#%1").arg(number));
    appendLine(text, "  Name: %1", screen.name());
    appendLine(text, "  Manufacturer: %1", screen.manufacturer());
    appendLine(text, physicalDpi.arg(screen.physicalDotsPerInchX()).arg(screen.physicalDotsPerInchY()));
    appendLine(text, logicalDpi.arg(screen.logicalDotsPerInchX()).arg(screen.logicalDotsPerInchY()));
    appendLine(text, QStringLiteral("  devicePixelRatio: %1").arg(screen.devicePixelRatio()));
    appendLine(text, QStringLiteral("  RefreshRate: %1 Hz").arg(screen.refreshRate()));
    appendSizeLines(text, screen.physicalSize());
    appendLine(text, size.arg(screen.size().width()).arg(screen.size().height()));
    appendLine(text, QStringLiteral("  Color depth: %1").arg(screen.depth()));
    appendLine(text, QStringLiteral("  Orientation: %1").arg(int(screen.orientation())));
    appendLine(text, QStringLiteral("  Native Orientation: %1").arg(int(screen.nativeOrientation())));
    appendLine(text, QStringLiteral("  Primary Orientation: %1").arg(int(screen.primaryOrientation())));
}

} // namespace

QString qtScreens()
{
    QString text;
    appendLine(text, QStringLiteral("QScreen (hardware)"));
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (int i = 0; i < screens.size(); ++i)
        appendScreenBlock(text, *screens.at(i), i + 1);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
