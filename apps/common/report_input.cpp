#include "report_input.h"

#include "neutral_text.h"
#include "program_input.h"
#include "program_output.h"

#include <QtCore/QFileInfo>

using namespace velkor;

namespace {

constexpr qint64 longWork = qint64(10) * 1024 * 1024; // bytes

/// JSON that went through PowerShell is UTF-16 or has a byte-order mark.
QByteArray withoutMark(const QByteArray &bytes)
{
    if (bytes.startsWith("\xef\xbb\xbf"))
        return bytes.mid(3);
    if (bytes.startsWith("\xff\xfe") && bytes.size() % 2 == 0)
        return QString::fromUtf16(reinterpret_cast<const ushort *>(bytes.constData()), bytes.size() / 2).toUtf8();
    return bytes;
}

/// The first character that is no space decides; the key decides between JSON and a text that begins with "{".
constexpr int beginningOfText = 1024; // bytes, of which the first is not a space

bool isJson(const QByteArray &bytes)
{
    const QByteArray first = bytes.left(beginningOfText).trimmed();
    return first.startsWith('{') && bytes.contains("\"schemaVersion\"");
}

} // namespace

std::optional<Reports::Document> readReport(const QString &fileName)
{
    QByteArray bytes;
    QString error;
    showProgress("reading", QFileInfo(fileName).size());
    if (!readInput(fileName, bytes, error)) {
        complain(Reports::terminalText(error));
        return std::nullopt;
    }
    showProgress("finding facts", bytes.size());
    auto document = readReportBytes(bytes, error);
    if (!document)
        complain(Reports::terminalText(error));
    return document;
}

std::optional<Reports::Document> readReportBytes(const QByteArray &bytes, QString &error)
{
    const QByteArray json = withoutMark(bytes.left(2048));
    if (!isJson(json))
        return Reports::read(bytes);
    auto document = Reports::fromJson(withoutMark(bytes), &error);
    if (!document)
        error = QStringLiteral("cannot read the JSON: %1").arg(error);
    return document;
}

void showProgress(const char *work, qint64 size)
{
    if (size >= longWork && isTerminal(stderr))
        complain(QStringLiteral("%1 (%2 MByte)").arg(QLatin1String(work)).arg(size / (qint64(1024) * 1024)));
}
