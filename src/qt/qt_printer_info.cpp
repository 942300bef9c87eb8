#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtPrintSupport/QPrinterInfo>

namespace velkor {
namespace SystemInfo {
namespace {

QString printerLine(const QPrinterInfo &printer)
{
    QString line = QStringLiteral("   %1").arg(printer.printerName());
    if (printer.isDefault())
        line += QStringLiteral("    [default printer]");
    return line;
}

} // namespace

QString qtPrinterInfo()
{
    QString text;
    appendLine(text, QStringLiteral("QPrinterInfo"));
    appendLine(text, QStringLiteral("Available printers:"));
    const QList<QPrinterInfo> printers = QPrinterInfo::availablePrinters();
    if (printers.isEmpty())
        appendLine(text, QStringLiteral("    <None>"));
    for (const QPrinterInfo &printer : printers)
        appendLine(text, printerLine(printer));
    return text;
}

} // namespace SystemInfo
} // namespace velkor
