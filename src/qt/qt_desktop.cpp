#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace velkor {
namespace SystemInfo {
namespace {

/// Both numbers are right-aligned.
void appendGeometryLine(QString &text, const char *format, const QRect &geometry)
{
    constexpr int fieldWidth = 5;
    appendLine(text, QString::fromLatin1(format).arg(geometry.width(), fieldWidth).arg(geometry.height(), fieldWidth));
}

/// The numbers of the siblings, each followed by a blank. A sibling that is not in the list
/// of screens has no number.
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

void appendScreenBlock(QString &text, const QList<QScreen *> &screens, int index, const QScreen *primary)
{
    const QScreen &screen = *screens.at(index);
    const QString mark = &screen == primary ? QStringLiteral(" (primary screen)") : QString();
    appendLine(text, QStringLiteral("Screen #%1:").arg(index + 1) + mark);
    appendGeometryLine(text, "  screen Geometry          width: %1, height: %2", screen.geometry());
    appendGeometryLine(text, "  available Geometry       width: %1, height: %2", screen.availableGeometry());
    appendGeometryLine(text, "  available virt. Geometry width: %1, height: %2", screen.availableVirtualGeometry());
    appendLine(text, "  virtual siblings: %1", siblingNumbers(screen, screens));
}

} // namespace

QString qtDesktop()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const QScreen *primary = QGuiApplication::primaryScreen(); // null while no display is connected
    QString text;
    appendLine(text, QStringLiteral("QScreen (Desktop)"));
    appendLine(text, "Desktop file name: %1", QGuiApplication::desktopFileName());
    appendLine(text, QStringLiteral("Number of screens:  %1").arg(screens.size()));
    appendLine(text, "Primary screen:     %1", primary ? primary->name() : QString());
    for (int i = 0; i < screens.size(); ++i)
        appendScreenBlock(text, screens, i, primary);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
