#include "report_saving.h"

#include "program_output.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QFileDialog>

namespace {

struct FormatRow
{
    OutputFormat format;
    const char *suffix;
    const char *filter;
};

constexpr FormatRow formatRows[] = {
    {OutputFormat::Text, ".txt", QT_TRANSLATE_NOOP("Output", "Text (*.txt)")},
    {OutputFormat::Json, ".json", QT_TRANSLATE_NOOP("Output", "JSON (*.json)")},
    {OutputFormat::Html, ".html", QT_TRANSLATE_NOOP("Output", "Web page (*.html)")},
    {OutputFormat::Markdown, ".md", QT_TRANSLATE_NOOP("Output", "Markdown (*.md)")},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("Output", text);
}

bool isAllowedInNames(QChar character)
{
    return character >= QLatin1Char(' ') && !QStringLiteral("<>:\"/\\|?*").contains(character);
}

} // namespace

bool saveBytes(const QByteArray &bytes, const QString &fileName, QString &error)
{
    return saveFile(
        fileName, [&bytes](QIODevice &file) { return file.write(bytes) == bytes.size() ? WriteResult::Written : WriteResult::Failed; }, error);
}

bool saveFile(const QString &fileName, const std::function<WriteResult(QIODevice &)> &write, QString &error)
{
    QString reason;
    if (isDevice(fileName)) { // QSaveFile would put a file in its place
        reason = translated(QT_TRANSLATE_NOOP("Output", "it is a device or a pipe"));
    } else {
        QSaveFile file(fileName);
        WriteResult result = WriteResult::Failed;
        if (file.open(QIODevice::WriteOnly))
            result = write(file);
        if (result == WriteResult::Cancelled)
            return false;
        if (result == WriteResult::Written && file.commit())
            return true;
        reason = file.errorString();
    }
    error = translated(QT_TRANSLATE_NOOP("Output", "'%1' could not be saved: %2")).arg(QDir::toNativeSeparators(fileName), reason);
    return false;
}

QStringList saveFilters()
{
    QStringList filters;
    for (const FormatRow &row : formatRows)
        filters += translated(row.filter);
    return filters;
}

OutputFormat formatOfFilter(const QString &filter)
{
    const int index = saveFilters().indexOf(filter);
    return formatRows[qMax(index, 0)].format;
}

OutputFormat formatOfFile(const QString &fileName, OutputFormat otherwise)
{
    for (const FormatRow &row : formatRows) {
        if (fileName.endsWith(QLatin1String(row.suffix), Qt::CaseInsensitive))
            return row.format;
    }
    return otherwise;
}

QString withSuffixOf(OutputFormat format, const QString &fileName)
{
    for (const FormatRow &row : formatRows) {
        if (fileName.endsWith(QLatin1String(row.suffix), Qt::CaseInsensitive))
            return fileName.chopped(int(qstrlen(row.suffix))) + suffixOf(format);
    }
    return fileName;
}

QString suffixOf(OutputFormat format)
{
    for (const FormatRow &row : formatRows) {
        if (row.format == format)
            return QLatin1String(row.suffix);
    }
    return {};
}

QString suggestedFileName(const OutputReport &report, OutputFormat format)
{
    // Not of QFileInfo, for which "a:" is a drive on Windows.
    QString name = report.name.mid(report.name.lastIndexOf(QRegularExpression(QStringLiteral("[/\\\\]"))) + 1);
    name.truncate(name.contains(QLatin1Char('.')) ? name.lastIndexOf(QLatin1Char('.')) : name.size());
    for (QChar &character : name) {
        if (!isAllowedInNames(character))
            character = QLatin1Char('_');
    }
    name = name.trimmed();
    if (name.isEmpty())
        name = QStringLiteral("report");
    if (report.isRedacted())
        name += QStringLiteral("-redacted"); // so that the original is not replaced
    return name + suffixOf(format);
}

std::optional<SaveChoice> chooseSaveFile(QWidget *parent, const QString &title, const QString &suggestedName)
{
    QFileDialog dialog(parent, title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(saveFilters());
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.setDefaultSuffix(suffixOf(OutputFormat::Text).mid(1)); // the dialog asks about the file that will be replaced
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString &filter) {
        const OutputFormat format = formatOfFilter(filter);
        dialog.setDefaultSuffix(suffixOf(format).mid(1));
        const QStringList files = dialog.selectedFiles();
        if (!files.isEmpty() && !QFileInfo(files.constFirst()).isDir())
            dialog.selectFile(withSuffixOf(format, QFileInfo(files.constFirst()).fileName()));
    });
    dialog.selectFile(suggestedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString fileName = dialog.selectedFiles().constFirst();
    return SaveChoice {fileName, formatOfFile(fileName, formatOfFilter(dialog.selectedNameFilter()))};
}

SaveResult saveReport(QWidget *parent, const OutputReport &report, QString &message)
{
    const auto choice = chooseSaveFile(parent, translated(QT_TRANSLATE_NOOP("Output", "Save report")), suggestedFileName(report, OutputFormat::Text));
    if (!choice)
        return SaveResult::Cancelled;
    if (!saveBytes(outputBytes(report, choice->format), choice->fileName, message))
        return SaveResult::Failed;
    message = translated(QT_TRANSLATE_NOOP("Output", "Saved as %1.")).arg(QDir::toNativeSeparators(choice->fileName));
    return SaveResult::Saved;
}
