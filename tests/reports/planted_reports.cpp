#include "planted_reports.h"

#include "document_texts.h"

#include <QtCore/QDir>
#include <QtCore/QtEndian>

using namespace velkor::Reports;

namespace {

/// The text of which \\, \t and \n were escaped.
QString unescaped(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\') || i + 1 == text.size()) {
            result += text.at(i);
            continue;
        }
        const QChar next = text.at(++i);
        result += next == QLatin1Char('t') ? QLatin1Char('\t') : next == QLatin1Char('n') ? QLatin1Char('\n')
                                                                                          : next;
    }
    return result;
}

QStringList rowsOf(const QString &fileName)
{
    QStringList rows = QString::fromUtf8(contentsOf(fileName)).split(QLatin1Char('\n'));
    rows.removeFirst(); // the names of the columns
    if (!rows.isEmpty() && rows.last().isEmpty())
        rows.removeLast();
    return rows;
}

bool addStatement(PlantedReport &report, const QString &row)
{
    const QStringList fields = row.split(QLatin1Char('\t'));
    if (fields.size() == 2 && fields[0] == QLatin1String("keep")) {
        report.kept.push_back(fields[1].toInt() - 1);
        return report.kept.back() >= 0 && report.kept.back() < report.lines.size();
    }
    if (fields.size() != 5 || fields[0] != QLatin1String("hidden"))
        return false;
    report.hidden.push_back({fields[1], fields[2], unescaped(fields[3]), fields[4]});
    return !report.hidden.back().needle.isEmpty();
}

} // namespace

QString Hidden::plant() const { return note.section(QStringLiteral(": "), 0, 0); }

QString decodedBytes(const QByteArray &bytes)
{
    if (!bytes.startsWith("\xff\xfe"))
        return QString::fromUtf8(bytes);
    QString text;
    for (int i = 2; i + 1 < bytes.size(); i += 2)
        text += QChar(qFromLittleEndian<quint16>(bytes.constData() + i));
    return text;
}

QStringList linesOf(const Document &document) { return decodedBytes(document.bytes()).split(QLatin1Char('\n')); }

std::vector<PlantedReport> plantedReports(const QString &folder, QString &error)
{
    std::vector<PlantedReport> reports;
    const QDir directory(folder);
    const QStringList names = directory.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    for (const QString &fileName : names) {
        PlantedReport report;
        report.name = fileName.chopped(4);
        report.document = read(contentsOf(directory.filePath(fileName)));
        report.lines = linesOf(report.document);
        const QStringList rows = rowsOf(directory.filePath(report.name + QStringLiteral(".tsv")));
        for (const QString &row : rows) {
            if (!addStatement(report, row))
                error = QStringLiteral("%1: wrong row: %2").arg(report.name, row);
        }
        if (report.hidden.empty() || report.kept.empty())
            error = QStringLiteral("%1: no statements").arg(report.name);
        reports.push_back(std::move(report));
    }
    return reports;
}

QMap<QString, int> plantedKinds(const QString &folder)
{
    QMap<QString, int> kinds;
    const QStringList rows = rowsOf(folder + QStringLiteral("/kinds.tsv"));
    for (const QString &row : rows)
        kinds[row.section(QLatin1Char('\t'), 0, 0)] = row.section(QLatin1Char('\t'), 3, 3).toInt();
    return kinds;
}
