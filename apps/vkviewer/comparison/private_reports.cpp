#include "private_reports.h"

#include "comparison_notes.h"

#include <QtCore/QRandomGenerator>
#include <algorithm>

using namespace velkor::Reports;

namespace {

constexpr int shortestSpelling = 3; ///< a shorter one is found in too many names by chance

// A line that is a person's name would define one, and "Dropped text" is none.
const QLatin1String beforeName("| ");
const QLatin1String afterName(" |");

/// The names as a text that is redacted together with the reports: so they have the same aliases.
Document documentOfNames(const std::vector<LoadedReport> &reports)
{
    QString text;
    for (const LoadedReport &report : reports)
        text += beforeName + ComparisonNotes::name(report) + afterName + QLatin1Char('\n');
    return read(text.toUtf8());
}

/// Whether something that was replaced elsewhere is a part of the name, where redaction does not look for it.
bool isPersonal(const QString &name, const std::vector<Alias> &aliases)
{
    const auto isIn = [&name](const QString &spelling) {
        return spelling.size() >= shortestSpelling && name.contains(spelling, Qt::CaseInsensitive);
    };
    return std::any_of(aliases.begin(), aliases.end(), [&](const Alias &alias) {
        return std::any_of(alias.spellings.begin(), alias.spellings.end(), isIn);
    });
}

QStringList namesIn(const Redaction &redaction, std::size_t count)
{
    QStringList lines = QString::fromUtf8(redaction.documents.back().text()).split(QLatin1Char('\n'));
    QStringList names;
    for (std::size_t i = 0; i < count; ++i) {
        const QString line = lines.value(int(i));
        const bool isWhole = line.startsWith(beforeName) && line.endsWith(afterName) && line.size() > beforeName.size() + afterName.size();
        const QString name = isWhole ? line.mid(beforeName.size(), line.size() - beforeName.size() - afterName.size()) : QString();
        names += name.isEmpty() || isPersonal(name, redaction.aliases) ? ComparisonNotes::number(int(i) + 1) : name;
    }
    return names;
}

} // namespace

QByteArray newAliasKey()
{
    quint32 words[8] = {};
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char *>(words), sizeof(words));
}

std::vector<LoadedReport> withoutPersonalData(const std::vector<LoadedReport> &reports, const QStringList &hide, const QByteArray &key)
{
    std::vector<Document> documents;
    documents.reserve(reports.size() + 1);
    for (const LoadedReport &report : reports)
        documents.push_back(report.document);
    documents.push_back(documentOfNames(reports));
    RedactionOptions options;
    options.key = key;
    options.hide = hide;
    const Redaction redaction = redact(documents, options);
    const QStringList names = namesIn(redaction, reports.size());
    std::vector<LoadedReport> result;
    for (std::size_t i = 0; i < reports.size(); ++i)
        result.push_back({names.at(int(i)), QString(), redaction.documents[i]});
    return result;
}
