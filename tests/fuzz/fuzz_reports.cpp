// Fuzzes the reader of reports and everything that starts from it.
//
// Any bytes are a report. Apart from the errors that sanitizers detect, these rules hold for all of
// them. Every byte has one place, every fact is inside its item and its section. The text, and the
// JSON and back, give the same bytes. A report is the same as itself. What people get to see is
// UTF-8 without control characters; HTML has the tags of this project only. A limit is kept. Redaction
// keeps the number of lines, and redacting again changes nothing.

#include "document_texts.h"
#include "fuzz_target.h"
#include "neutral_text.h"
#include "redaction_rules.h"
#include "vkReports.h"

#include <algorithm>

using namespace velkor::Reports;

namespace {

bool isIn(int index, int first, int last)
{
    return index >= first && index < last;
}

void checkFacts(const Document &document)
{
    const int items = int(document.items().size());
    const int facts = int(document.facts().size());
    int next = 0;
    for (const Section &section : document.sections()) {
        require(section.firstFact >= next && section.lastFact >= section.firstFact && section.lastFact <= facts,
                "the facts of a section follow those of the section before it");
        next = section.lastFact;
        for (int i = section.firstFact; i < section.lastFact; ++i) {
            const Fact &fact = document.facts()[std::size_t(i)];
            require(fact.begin >= section.begin && fact.begin <= fact.end && fact.end <= section.end,
                    "a fact is inside its section");
            require(fact.item == -1 || isIn(fact.item, section.firstItem, section.lastItem), "a fact's item is in its section");
        }
        require(section.firstItem >= 0 && section.lastItem <= items, "a section has items of the document");
    }
    for (int i = 0; i < facts; ++i) {
        const int item = document.facts()[std::size_t(i)].item;
        require(isIn(document.facts()[std::size_t(i)].row, 0, int(factRows().size())), "a fact has a row");
        require(item == -1
                    || isIn(i, document.items()[std::size_t(item)].firstFact, document.items()[std::size_t(item)].lastFact),
                "an item has its facts");
    }
    for (int i = 0; i < items; ++i)
        require(document.items()[std::size_t(i)].parent < i, "an item follows the one around it");
}

void checkValues(const Document &document)
{
    for (const Fact &fact : document.facts()) {
        document.display(fact);
        document.values(fact);
        document.integer(fact);
        document.bytes64(fact);
        document.real(fact);
        document.isoDate(fact);
    }
    for (std::size_t i = 0; i < document.items().size(); ++i)
        document.identity(int(i));
    int last = -1;
    for (const int offset : document.ambiguous()) {
        require(offset > last && offset <= document.text().size(), "ambiguous lines are in order", QByteArray::number(offset));
        last = offset;
    }
}

bool isUtf8(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).toUtf8() == bytes;
}

/// What a terminal must not get.
void checkNoControls(const QByteArray &text, const char *what)
{
    require(std::none_of(text.begin(), text.end(), [](char byte) {
                const uchar code = uchar(byte);
                return (code < 0x20 && byte != '\n' && byte != '\t') || code == 0x7f;
            }),
            what, text);
    require(isUtf8(text), "it is UTF-8", text);
}

void checkHtml(const QByteArray &html)
{
    checkNoControls(html, "HTML has no control characters");
    constexpr const char *names[] = {"!DOCTYPE", "a", "body", "div", "h1", "h2", "h3", "h4", "h5", "h6", "head", "html", "li", "meta",
                                     "nav", "ol", "p", "pre", "span", "strong", "style", "table", "tbody", "td", "th",
                                     "thead", "title", "tr", "ul"};
    for (int at = html.indexOf('<'); at >= 0; at = html.indexOf('<', at + 1)) {
        int begin = at + 1;
        if (begin < html.size() && html[begin] == '/')
            ++begin;
        int end = begin;
        while (end < html.size() && html[end] != ' ' && html[end] != '>')
            ++end;
        const QByteArray name = html.mid(begin, end - begin);
        require(std::find(std::begin(names), std::end(names), name) != std::end(names), "a tag is one of this project",
                html.mid(at, 200));
    }
}

void checkJson(const Document &document)
{
    const QByteArray json = toJson(document);
    require(isUtf8(json), "JSON is UTF-8", json);
    QString error;
    const std::optional<Document> again = fromJson(json, &error);
    require(again.has_value(), "JSON can be read", error.toUtf8() + '\n' + json);
    require(again->bytes() == document.bytes(), "JSON gives the same bytes", json);
    require(again->facts().size() == document.facts().size(), "JSON gives the same facts", json);
}

void checkWriters(const Document &document)
{
    require(toText(document) == document.bytes(), "the whole text is the bytes that were read");
    checkNoControls(terminalText(QString::fromUtf8(toText(document))).toUtf8(), "a terminal gets no control characters");
    checkNoControls(toMarkdown(document), "Markdown has no control characters");
    checkHtml(toHtml(document));
    WriteOptions options;
    options.maxLength = 700;
    require(QString::fromUtf8(toMarkdown(document, options)).size() <= options.maxLength, "Markdown keeps to its limit");
    require(QString::fromUtf8(toText(document, options)).size() <= options.maxLength, "text keeps to its limit");
    options.maxLength = 0;
    options.onlySummary = true;
    checkNoControls(toMarkdown(document, options), "the summary has no control characters");
    checkHtml(toHtml(document, options));
}

void checkComparison(const Document &older, const Document &newer)
{
    const Comparison comparison = compare(older, newer);
    ComparisonOptions options;
    options.all = true;
    options.reportNames = QStringList {QString::fromUtf8(older.bytes().left(40)), QStringLiteral("newer")};
    checkNoControls(comparisonText(comparison, options), "the differences have no control characters");
    checkNoControls(comparisonMarkdown(comparison, options), "the differences in Markdown have no control characters");
    checkHtml(comparisonHtml(comparison, options));
    require(isUtf8(comparisonJson(comparison, options)), "the differences in JSON are UTF-8");
    const ComparisonTable table = compareSeveral({older, newer, older});
    require(table.same() == comparison.same(), "a table of the same reports says the same");
    options.reportNames += QStringLiteral("older");
    checkNoControls(comparisonText(table, options), "the table has no control characters");
    checkHtml(comparisonHtml(table, options));
}

/// The lists are fixed: the same input has the same result.
RedactionOptions redactionOptions(bool hasKey)
{
    RedactionOptions options;
    if (hasKey) {
        options.key = QByteArrayLiteral("key of the fuzzer");
        options.hide = QStringList {QStringLiteral("Fujitsu"), QStringLiteral("a"), QStringLiteral("*-?[0-9]*"), QStringLiteral("C:\\")};
        options.keep = QStringList {QStringLiteral("Microsoft"), QStringLiteral("1*"), QStringLiteral("[!a-z]")};
    }
    return options;
}

void checkRedaction(const Document &document)
{
    for (const bool hasKey : {false, true}) {
        const RedactionOptions options = redactionOptions(hasKey);
        const Redaction redaction = redact({document}, options);
        require(redaction.documents.size() == 1, "a document has one redaction");
        const Document &redacted = redaction.documents.front();
        if (redacted.encoding() != document.encoding())
            continue; // a mixture of encodings: what is left of it looks like the other one
        require(haveSameLineBreaks(document, redacted), "redaction keeps the number of lines", redacted.bytes());
        const QByteArray again = redact({redacted}, options).documents.front().bytes();
        require(again == redacted.bytes(), "redacting again changes nothing", redacted.bytes() + "\n became \n" + again);
        const QString flaw = flawOfAliases(redaction, hasKey, true);
        require(flaw.isEmpty(), "aliases are well-formed", flaw.toUtf8());
        checkNoControls(redactionText(redaction), "the text of what was replaced has no control characters");
        require(isUtf8(redactionJson(redaction)) && isUtf8(aliasMapJson(redaction)), "JSON of aliases is UTF-8");
        const std::optional<Document> restored = fromJson(toJson(redacted, redaction));
        require(restored && restored->bytes() == redacted.bytes(), "JSON of a redacted report gives the same bytes");
    }
}

void checkDocument(const Document &document)
{
    const QString flaw = flawOfPlaces(document);
    require(flaw.isEmpty(), "every byte is in one place", flaw.toUtf8());
    checkFacts(document);
    checkValues(document);
    checkJson(document);
    checkWriters(document);
    const Comparison itself = compare(document, document);
    require(itself.same() && itself.changes.empty(), "a report is the same as itself", comparisonText(itself, {}));
}

/// The bytes with something of it moved: the second half first.
QByteArray turned(const QByteArray &bytes)
{
    const int half = bytes.size() / 2;
    return bytes.mid(half) + bytes.left(half);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const Document document = read(bytes);
    require(document.bytes() == bytes, "the bytes are kept");
    checkDocument(document);
    checkComparison(document, read(turned(bytes)));
    checkRedaction(document);
    QString error;
    const std::optional<Document> fromBytes = fromJson(bytes, &error);
    require(fromBytes.has_value() == error.isEmpty(), "JSON that cannot be read has a message", error.toUtf8());
    if (fromBytes)
        checkDocument(*fromBytes);
    return 0;
}
