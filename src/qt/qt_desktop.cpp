#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace velkor {
namespace SystemInfo {
namespace {

/// \a format with both numbers right-aligned in fields of 5.
QString geometryLine(const char *format, const QRect &geometry)
{
    return QString::fromLatin1(format).arg(geometry.width(), 5).arg(geometry.height(), 5) + newline;
}

/// The numbers of the siblings, each with a blank behind it; one that is not in the
/// list of screens is left out.
QString siblingNumbers(const QScreen &screen, const QList<QScreen *> &screens)
{
    const QList<QScreen *> siblings = screen.virtualSiblings();
    if (siblings.isEmpty())
        return QStringLiteral("-");
    QString text;
    for (QScreen *sibling : siblings) {
        const int index = screens.indexOf(sibling);
        if (index >= 0)
            text += QStringLiteral("#%1 ").arg(index + 1);
    }
    return text;
}

QString screenBlock(const QList<QScreen *> &screens, int index, const QScreen *primary)
{
    const QScreen &screen = *screens.at(index);
    QString text = QStringLiteral("Screen #%1:").arg(index + 1);
    if (&screen == primary)
        text += QStringLiteral(" (primary screen)");
    text += newline;
    text += geometryLine("  screen Geometry          width: %1, height: %2", screen.geometry());
    text += geometryLine("  available Geometry       width: %1, height: %2", screen.availableGeometry());
    text += geometryLine("  available virt. Geometry width: %1, height: %2", screen.availableVirtualGeometry());
    return text + QStringLiteral("  virtual siblings: ") + siblingNumbers(screen, screens) + newline;
}

} // namespace

QString qtDesktop()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const QScreen *primary = QGuiApplication::primaryScreen(); // null while no display is connected
    QString text = QStringLiteral("QScreen (Desktop)") + newline
        + QStringLiteral("Desktop file name: %1").arg(QGuiApplication::desktopFileName()) + newline
        + QStringLiteral("Number of screens:  %1").arg(screens.size()) + newline
        + QStringLiteral("Primary screen:     %1").arg(primary ? primary->name() : QString()) + newline;
    for (int i = 0; i < screens.size(); ++i)
        text += screenBlock(screens, i, primary);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
