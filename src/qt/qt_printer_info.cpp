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
    return line + newline;
}

} // namespace

QString qtPrinterInfo()
{
    QString text = QStringLiteral("QPrinterInfo") + newline + QStringLiteral("Available printers:") + newline;
    const QList<QPrinterInfo> printers = QPrinterInfo::availablePrinters();
    if (printers.isEmpty())
        text += QStringLiteral("    <None>") + newline;
    for (const QPrinterInfo &printer : printers)
        text += printerLine(printer);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
