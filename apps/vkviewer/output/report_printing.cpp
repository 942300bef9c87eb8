#include "report_printing.h"

#include "page_painter.h"
#include "report_saving.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>
#include <QtGui/QPdfWriter>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QProgressDialog>
#if QT_CONFIG(printdialog)
#  include <QtPrintSupport/QPrintDialog>
#else // a Qt that was built without
#  include <QtPrintSupport/QPrinterInfo>
#  include <QtWidgets/QInputDialog>
#endif

namespace {

constexpr qreal margin = 15; // millimetres

QString translated(const char *text)
{
    return QCoreApplication::translate("Output", text);
}

/// Shows how far it is, and whether the user wants no more.
class PageProgress
{
public:
    explicit PageProgress(QWidget *parent)
        : m_dialog(translated(QT_TRANSLATE_NOOP("Output", "Writing pages...")), translated(QT_TRANSLATE_NOOP("Output", "Cancel")), 0, 0, parent)
    {
        m_dialog.setWindowModality(Qt::WindowModal);
    }

    bool operator()(int page, int pages)
    {
        m_dialog.setMaximum(pages);
        m_dialog.setValue(page - 1); // handles events, as the dialog is modal
        return !m_dialog.wasCanceled();
    }

private:
    QProgressDialog m_dialog;
};

#if QT_CONFIG(printdialog)

bool choosePrinter(QPrinter &printer, QWidget *parent, QString & /*message*/)
{
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted;
}

#else

/// Prints all pages once, with the settings of the printer.
bool choosePrinter(QPrinter &printer, QWidget *parent, QString &message)
{
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (names.isEmpty()) {
        message = translated(QT_TRANSLATE_NOOP("Output", "No printer is installed. The report can be saved as PDF."));
        return false;
    }
    bool isAccepted = false;
    const QString name = QInputDialog::getItem(parent, translated(QT_TRANSLATE_NOOP("Output", "Print")), translated(QT_TRANSLATE_NOOP("Output", "&Printer:")), names,
                                               qMax(names.indexOf(QPrinterInfo::defaultPrinterName()), 0), false, &isAccepted);
    if (isAccepted)
        printer.setPrinterName(name);
    return isAccepted;
}

#endif

} // namespace

bool savePdf(const OutputReport &report, const QString &fileName, const std::function<bool(int page, int pages)> &goesOn, QString &error)
{
    const auto write = [&](QIODevice &file) {
        QPdfWriter writer(&file);
        writer.setTitle(report.name);
        writer.setCreator(QCoreApplication::applicationName());
        writer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
        return paintReport(writer, report, {}, goesOn);
    };
    return saveFile(fileName, write, error);
}

bool exportPdf(QWidget *parent, const OutputReport &report, QString &message)
{
    QFileDialog dialog(parent, translated(QT_TRANSLATE_NOOP("Output", "Save as PDF")));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters({translated(QT_TRANSLATE_NOOP("Output", "PDF (*.pdf)"))});
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.selectFile(QFileInfo(suggestedFileName(report, OutputFormat::Text)).completeBaseName() + QStringLiteral(".pdf"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    const QString fileName = dialog.selectedFiles().constFirst();
    PageProgress progress(parent);
    if (!savePdf(report, fileName, std::ref(progress), message))
        return false;
    message = translated(QT_TRANSLATE_NOOP("Output", "Saved as %1.")).arg(QDir::toNativeSeparators(fileName));
    return true;
}

bool printReport(QWidget *parent, const OutputReport &report, QString &message)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(report.name);
    printer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    if (!choosePrinter(printer, parent, message))
        return false;
    PageProgress progress(parent);
    const WriteResult result = paintReport(printer, report, {printer.fromPage(), printer.toPage()}, std::ref(progress));
    if (result == WriteResult::Cancelled)
        printer.abort();
    else if (result == WriteResult::Failed)
        message = translated(QT_TRANSLATE_NOOP("Output", "The report could not be printed."));
    return result == WriteResult::Written;
}
