// vkcompare: shows how two or more reports differ.

#include "input.h"
#include "neutral_text.h"
#include "program_input.h"
#include "program_output.h"
#include "section_names.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <algorithm>

using namespace velkor::Reports;

namespace {

/// As those of diff.
enum Result {
    Same = 0,
    Different = 1,
    Trouble = 2,
};

const QCommandLineOption format(QStringLiteral("format"), QStringLiteral("The form of the output: text (default), json, markdown or html."),
                                QStringLiteral("FORM"), QStringLiteral("text"));
const QCommandLineOption all(QStringLiteral("all"),
                             QStringLiteral("Show also what changes every moment, such as times and free memory."));
const QCommandLineOption section(QStringLiteral("section"),
                                 QStringLiteral("Compare this section only: its name or its heading. Can be given several times."),
                                 QStringLiteral("NAME"));
const QCommandLineOption output(QStringList {QStringLiteral("o"), QStringLiteral("output")},
                                QStringLiteral("Write to this file instead of standard output."), QStringLiteral("FILE"));

/// The ways to write what was compared: two reports, or more.
struct Format
{
    const char *name;
    QByteArray (*write)(const Comparison &, const ComparisonOptions &);
    QByteArray (*writeTable)(const ComparisonTable &, const ComparisonOptions &);
};

constexpr Format formats[] = {
    {"text", comparisonText, comparisonText},
    {"json", comparisonJson, comparisonJson},
    {"markdown", comparisonMarkdown, comparisonMarkdown},
    {"html", comparisonHtml, comparisonHtml},
};

const Format *findFormat(const QString &name)
{
    const auto found = std::find_if(std::begin(formats), std::end(formats), [&](const Format &candidate) { return name == QLatin1String(candidate.name); });
    return found == std::end(formats) ? nullptr : found;
}

/// Removes what does not belong to one of \a sections, if there are any.
template <typename Changes>
void keepSections(Changes &changes, const std::vector<int> &sections)
{
    if (sections.empty())
        return;
    QStringList names;
    for (const int row : sections)
        names += QString::fromUtf8(sectionRows()[std::size_t(row)].name);
    changes.erase(std::remove_if(changes.begin(), changes.end(), [&](const auto &change) { return !names.contains(change.section); }),
                  changes.end());
}

/// What the user wants to see.
struct Request
{
    QStringList files;
    const Format *format = nullptr;
    std::vector<int> sections;
    ComparisonOptions options;
};

/// Returns nothing, after a message, if the command line is wrong.
std::optional<Request> requestOf(const QCommandLineParser &parser)
{
    Request request;
    request.files = parser.positionalArguments();
    request.format = findFormat(parser.value(format));
    request.options.all = parser.isSet(all);
    request.options.colours = !parser.isSet(output) && canShowColours();
    QString error;
    request.sections = resolveSections(parser.values(section), error);
    if (!request.format)
        error = QStringLiteral("unknown format '%1'; there are text, json, markdown and html").arg(parser.value(format));
    else if (request.files.size() < 2)
        error = QStringLiteral("at least two reports are required; see --help");
    else if (request.files.count(QStringLiteral("-")) > 1)
        error = QStringLiteral("standard input can be read only once");
    if (error.isEmpty())
        return request;
    complain(terminalText(error));
    return std::nullopt;
}

/// The text, and whether there are differences.
struct Answer
{
    QByteArray text;
    bool same = false;
};

Answer answerOf(const Request &request, const std::vector<Document> &documents)
{
    if (documents.size() == 2) {
        Comparison comparison = compare(documents[0], documents[1]);
        keepSections(comparison.changes, request.sections);
        return {request.format->write(comparison, request.options), comparison.same()};
    }
    ComparisonTable table = compareSeveral(documents);
    keepSections(table.rows, request.sections);
    return {request.format->writeTable(table, request.options), table.same()};
}

/// The name of a requested section that no report has, if none of the requested ones is there; or empty.
QString missingSection(const Request &request, const std::vector<Document> &documents)
{
    for (const int row : request.sections) {
        const char *name = sectionRows()[std::size_t(row)].name;
        for (const Document &document : documents) {
            if (document.findSection(name) >= 0)
                return {};
        }
    }
    return request.sections.empty() ? QString() : QString::fromLatin1(sectionRows()[std::size_t(request.sections.front())].name);
}

Result run(const QCommandLineParser &parser)
{
    auto request = requestOf(parser);
    if (!request)
        return Trouble;
    std::vector<Document> documents;
    for (const QString &file : request->files) {
        const auto input = readInputReport(file);
        if (!input)
            return Trouble;
        request->options.reportNames += input->name;
        documents.push_back(input->document);
    }
    const QString missing = missingSection(*request, documents);
    if (!missing.isEmpty()) {
        complain(QStringLiteral("no report has the section '%1'").arg(missing));
        return Trouble;
    }
    const Answer answer = answerOf(*request, documents);
    QString error = QStringLiteral("cannot write to standard output");
    const QString text = QString::fromUtf8(answer.text);
    const bool isWritten = parser.isSet(output) ? writeToFile(text, parser.value(output), error) : writeToStandardOutput(text);
    if (!isWritten) {
        complain(terminalText(error));
        return Trouble;
    }
    return answer.same ? Same : Different;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkcompare"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Shows how two or more system reports differ.\n\n"
        "A report is a text, as vkreport and hosts write it, or the JSON that vkreport makes of it.\n"
        "The exit code is 0 if the reports are the same, 1 if they differ, and 2 if they could not be\n"
        "compared. What changes every moment is no difference."));
    parser.addHelpOption();
    parser.addOptions({format, all, section, output});
    parser.addPositionalArgument(QStringLiteral("OLD"), QStringLiteral("The older report; - is standard input."));
    parser.addPositionalArgument(QStringLiteral("NEW"), QStringLiteral("The newer report; with more of them a table is shown."),
                                 QStringLiteral("NEW [MORE...]"));
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(terminalText(parser.errorText()));
        return Trouble;
    }
    if (parser.isSet(QStringLiteral("help")))
        return writeToStandardOutput(parser.helpText()) ? Same : Trouble;
    return run(parser);
}
