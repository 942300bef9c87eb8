// Saves reports to files.
#pragma once

#include "output_report.h"

#include <QtCore/QStringList>
#include <functional>
#include <optional>

class QIODevice;
class QWidget;

enum class WriteResult {
    Written,
    Cancelled,
    Failed,
};

/// Writes a file as a whole: if \a write or something else fails, the file that was there is unchanged, and \a error is a
/// message for the user, which is empty if \a write was cancelled. Devices and pipes are refused.
bool saveFile(const QString &fileName, const std::function<WriteResult(QIODevice &)> &write, QString &error);
/// The same for bytes that are there.
bool saveBytes(const QByteArray &bytes, const QString &fileName, QString &error);

/// The formats, as a file dialog names them: "Text (*.txt)". The first one is the default.
QStringList saveFilters();
/// The format of a filter of saveFilters(). Unknown filters are text.
OutputFormat formatOfFilter(const QString &filter);
/// The format that the suffix of a file says.
OutputFormat formatOfFile(const QString &fileName, OutputFormat otherwise);
/// The file name with another suffix, if it has that of one of the formats.
QString withSuffixOf(OutputFormat format, const QString &fileName);
/// The suffix of its files, with the point.
QString suffixOf(OutputFormat format);
/// A name to begin with: that of the report without its suffix and without characters that Windows does not allow.
QString suggestedFileName(const OutputReport &report, OutputFormat format);

enum class SaveResult {
    Saved,
    Cancelled,
    Failed,
};

struct SaveChoice
{
    QString fileName;
    OutputFormat format = OutputFormat::Text;
};
/// Asks for a file and its form, and whether a file that is there shall be replaced; nothing if the user cancels.
std::optional<SaveChoice> chooseSaveFile(QWidget *parent, const QString &title, const QString &suggestedName);

/// Asks for a file and a format and saves. \a message says where, or what failed; empty if the user cancelled.
SaveResult saveReport(QWidget *parent, const OutputReport &report, QString &message);
