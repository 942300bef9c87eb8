#include "described_screens.h"

#include <QtCore/QCoreApplication>

namespace qt_environment {

QStringList environmentWithScreens(const QByteArray &json)
{
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/described_screens");
    return {QStringLiteral("QT_QPA_PLATFORM=described_screens"), QStringLiteral("QT_QPA_PLATFORM_PLUGIN_PATH=") + folder,
            QStringLiteral("DESCRIBED_SCREENS=") + QString::fromUtf8(json)};
}

} // namespace qt_environment
