#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QLocale>

namespace velkor {
namespace SystemInfo {
namespace {

// Quirk: the measurement system of the United Kingdom is "unknown".
QString measurementSystemName(QLocale::MeasurementSystem system)
{
    switch (system) {
    case QLocale::MetricSystem:
        return QStringLiteral("MetricSystem");
    case QLocale::ImperialUSSystem:
        return QStringLiteral("ImperialSystem");
    default:
        return QStringLiteral("unknown");
    }
}

} // namespace

QString qtLocale()
{
    const QLocale locale = QLocale::system();
    QString text;
    appendLine(text, QStringLiteral("QLocale"));
    appendLine(text, "Country:          %1", QLocale::countryToString(locale.country()));
    appendLine(text, "Language:         %1", QLocale::languageToString(locale.language()));
    appendLine(text, "Measuring System: %1", measurementSystemName(locale.measurementSystem()));
    return text;
}

} // namespace SystemInfo
} // namespace velkor
