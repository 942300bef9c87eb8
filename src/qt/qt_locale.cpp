#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QLocale>

namespace velkor {
namespace SystemInfo {
namespace {

// The report knows two systems. That of the United Kingdom is "unknown" and must
// stay so.
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
    return QStringLiteral("QLocale") + newline
        + QStringLiteral("Country:          ") + QLocale::countryToString(locale.country()) + newline
        + QStringLiteral("Language:         ") + QLocale::languageToString(locale.language()) + newline
        + QStringLiteral("Measuring System: ") + measurementSystemName(locale.measurementSystem()) + newline;
}

} // namespace SystemInfo
} // namespace velkor
