// Reports as data: reads the text of a report, converts it, compares it, redacts it.
//
//     Document document = read(bytes);
//     QByteArray json = toJson(document);
//     Comparison comparison = compare(read(older), document);
//
// Everything starts from the finished text, so a report of another machine, year or build is read
// as well as one of today. No function here asks the platform, needs a QCoreApplication or keeps
// state between calls. All functions can be called from any thread; an object is used by one
// thread at a time. No function throws, apart from std::bad_alloc.
//
// Static library: link vkSystemInfo::vkReports and Qt5::Core.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFlags>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <memory>
#include <optional>
#include <vector>

namespace velkor {
namespace Reports {

/// The version of the JSON form. It grows when a key changes its meaning, not when keys are added.
constexpr int schemaVersion = 1;

struct Redaction;

// ---------------------------------------------------------------------------------------------
// The catalogue: what a report can contain

enum class Type {
    Text,
    Number,   ///< integer of up to 32 bits
    Number64, ///< integer of up to 64 bits; a decimal text in JSON
    Real,     ///< floating-point number
    Bytes,    ///< count of bytes, up to 64 bits; a decimal text in JSON
    Version,  ///< numbers with points between them
    Date,     ///< date, or date and time
    List,     ///< texts
};

enum class Changes {
    Rarely,      ///< only when somebody or something changes the machine
    EveryMoment, ///< times, free memory, process ids
    Slowly,      ///< free disk space: a difference is one only if it is large
};

enum class Reveal {
    Nothing = 0,
    User = 0x1,
    Host = 0x2,
    Organisation = 0x4,
    Address = 0x8,
    SerialNumber = 0x10,
    Path = 0x20,
    Printer = 0x40,
    DriveLabel = 0x80,
    NetworkDrive = 0x100,
    Secret = 0x200,
};
Q_DECLARE_FLAGS(Reveals, Reveal)
Q_DECLARE_OPERATORS_FOR_FLAGS(Reveals)

/// A fact of the format. The rows are in the order of the report.
struct FactRow
{
    const char *section; ///< name of the section, such as "memoryInfo"
    const char *item;    ///< kind of the item that the fact belongs to; empty for the section itself
    const char *key;     ///< stable name in camel case, unique within section and item; empty for a fixed line
    /// The line as the format has it; "%1", "%2" are the values. Facts of one line have equal lines.
    const char *line;
    int place; ///< which of the line's values is this fact: 1, 2, ...
    Type type;
    const char *unit; ///< "Byte", "MHz", "min", "Hz", "mm", "inch", "dpi", "bit", "px", "%", or empty
    Changes changes;
    Reveals reveals;
    unsigned form;    ///< how the reader recognises the line; see FactForm in reports/catalogue.h
    const char *only; ///< the only text that the value can have, or empty

    /// The label as it stands in the text: what precedes the value in its line, with its spaces.
    QString label() const;
    /// What the value is and where it comes from: one or two English sentences for people, plain text of at
    /// most 300 characters without line breaks. Empty if the row is none of factRows(). For any thread.
    QString meaning() const;
};

/// A kind of item: processors, drivers, drives, interfaces.
struct ItemRow
{
    const char *section;       ///< name of the section; "diskDevicesFromRegistry" stands for all of that function
    const char *kind;          ///< name in camel case, such as "processor"
    const char *list;          ///< name of a list of them, such as "processors"
    const char *parent;        ///< kind of the item around it, or empty
    const char *identity;      ///< key of the fact that identifies the item
    const char *otherIdentity; ///< used if that fact is missing; or empty
    const char *before;        ///< literal text before the item in the format
    const char *between;       ///< literal text between two items
    const char *after;         ///< literal text after the item

    /// What an item of this kind is; else as FactRow::meaning().
    QString meaning() const;
};

enum class Half {
    Windows,
    Qt,
    OpenGL,
};

struct SectionRow
{
    const char *name; ///< name of the function; an argument follows after a colon
    /// The lines at its beginning that hold no value, with their line feeds. Empty if the section
    /// begins with a fact.
    const char *heading;
    Half half;
    bool separator;    ///< followed by a separator line
    const char *facts; ///< name in FactRow::section and ItemRow::section

    /// What the section shows and where it comes from; else as FactRow::meaning().
    QString meaning() const;
};

const std::vector<FactRow> &factRows();
const std::vector<ItemRow> &itemRows();
const std::vector<SectionRow> &sectionRows();

/// The 72 hyphens between sections, without the line feed.
QByteArray separatorLine();
/// The heading line of a half, without the line feed; empty for OpenGL, which has none.
QByteArray halfHeading(Half half);

// ---------------------------------------------------------------------------------------------
// The document: a text and what stands where in it

/// What a text went through after the library wrote it, and what the reader cannot decide.
enum class State {
    CrLf = 0x1,       ///< lines end with carriage return and line feed, or carriage return alone
    MailQuotes = 0x2, ///< lines begin with ">"
    ByteOrderMark = 0x4,
    Utf16 = 0x8, ///< the bytes were UTF-16
    TrailingBlanksStripped = 0x10,
    LeadingBlanksStripped = 0x20,
    BlanksCollapsed = 0x40, ///< runs of spaces became one
    NoBreakSpaces = 0x80,   ///< U+00A0 or tabs for spaces
    WrappedLines = 0x100,   ///< long lines were broken at spaces
    ForeignText = 0x200,    ///< text that is no report before, between or after
    StartMissing = 0x400,
    EndMissing = 0x800,       ///< also when the OpenGL section begins and does not end
    SectionsMissing = 0x1000, ///< a section between two others is missing
    NativeDigits = 0x2000,    ///< dates with other digits than 0 to 9
    SeveralReports = 0x4000,
    NoReport = 0x8000,   ///< nothing of a report was found
    Ambiguous = 0x10000, ///< the text contradicts the format whichever way it is read; see Document::ambiguous()
    NotUtf8 = 0x20000,   ///< some bytes are no UTF-8
};
Q_DECLARE_FLAGS(States, State)
Q_DECLARE_OPERATORS_FOR_FLAGS(States)

/// The names of the states that are set, as JSON has them: "crLf", "mailQuotes".
QStringList stateNames(States states);

/// A value in the text.
struct Fact
{
    int row = 0;   ///< index in factRows()
    int item = -1; ///< index in Document::items(), or -1 if it belongs to the section itself
    int begin = 0; ///< offset in Document::text()
    int end = 0;
};

struct Item
{
    int kind = 0;      ///< index in itemRows()
    int section = 0;   ///< index in Document::sections()
    int parent = -1;   ///< index in Document::items(), or -1
    int begin = 0;     ///< offset of its first line
    int end = 0;       ///< offset after its last line
    int firstFact = 0; ///< index in Document::facts()
    int lastFact = 0;  ///< index after the last one, which includes those of the items in it
};

struct Section
{
    int row = 0;    ///< index in sectionRows()
    int report = 0; ///< 0 for the first report of the text, 1 for the second
    int begin = 0;
    int end = 0;
    int firstFact = 0;
    int lastFact = 0;
    int firstItem = 0;
    int lastItem = 0;
};

enum class PlaceKind {
    Heading,   ///< lines at the beginning of a half or a section
    Separator, ///< 72 hyphens
    Label,     ///< what the format itself puts around values, with the line ends
    Value,
    Empty, ///< an empty line
    Mark,  ///< the byte-order mark
    Quote, ///< the mail quote at the beginning of a line
    Other, ///< what no rule knows
};

struct Place
{
    PlaceKind kind = PlaceKind::Other;
    int begin = 0;
    int end = 0;
    int fact = -1; ///< index in Document::facts(), for a value
};

class DocumentData;

/// A text, and the sections, items and facts in it. Copying is cheap (implicitly shared, const).
class Document
{
public:
    Document();
    explicit Document(std::shared_ptr<const DocumentData> data);

    /// The bytes that were read, unchanged.
    QByteArray bytes() const;
    /// The text that all offsets refer to: the bytes themselves, or their UTF-8 form if they were
    /// UTF-16 (an unpaired surrogate becomes the three bytes that UTF-8 would have for it).
    const QByteArray &text() const;
    /// "UTF-8", "UTF-16LE" or "UTF-16BE".
    QByteArray encoding() const;
    /// What ends the lines: "\n", "\r\n" or "\r".
    QByteArray lineEnd() const;
    /// The mail quote that lines of the report begin with, such as "> "; or empty.
    QByteArray linePrefix() const;

    States states() const;
    /// Offsets of lines that may belong to a value or to the structure, in ascending order.
    const std::vector<int> &ambiguous() const;

    const std::vector<Section> &sections() const;
    const std::vector<Item> &items() const;
    const std::vector<Fact> &facts() const;
    /// Every byte of text() in exactly one place, in order, without gaps. Empty values have none.
    std::vector<Place> places() const;

    const FactRow &row(const Fact &fact) const;

    /// The value's bytes, without the line ends, quotes and indentation of its further lines. A
    /// line break inside becomes a line feed, or a space if lines were wrapped.
    QByteArray value(const Fact &fact) const;
    /// value() as text, for people and for comparisons: no-break spaces become spaces, and spaces
    /// at both ends are removed. Bytes that are no UTF-8 become replacement characters.
    QString display(const Fact &fact) const;
    /// The entries of a fact of type List; value() alone for other types.
    std::vector<QByteArray> values(const Fact &fact) const;
    /// The number of a fact of type Number, Number64 or Bytes; of "70.6 GByte" the smallest count
    /// that is written so. Empty if the value is no number.
    std::optional<qint64> integer(const Fact &fact) const;
    std::optional<quint64> bytes64(const Fact &fact) const;
    std::optional<double> real(const Fact &fact) const;
    /// The date of a fact of type Date in ISO 8601: "2021-07-19" or "2023-12-05T09:41:07"; empty
    /// if the value is no date. The time has no time zone: the fact's meaning says which one it is.
    QString isoDate(const Fact &fact) const;

    /// The fact with this key that belongs to \a item, or to \a section itself if \a item is -1;
    /// null if there is none. Of several the first.
    const Fact *find(int section, int item, const char *key) const;
    /// The section with this name in the first report that has it; -1 if there is none.
    int findSection(const char *name) const;
    /// What identifies an item among its siblings: a drive's letter, a module's file name in lower
    /// case. Empty if the fact is missing.
    QString identity(int item) const;

    const DocumentData &data() const;

private:
    std::shared_ptr<const DocumentData> d;
};

/// Reads any bytes. Never fails: what is no report becomes PlaceKind::Other.
Document read(const QByteArray &bytes);

// ---------------------------------------------------------------------------------------------
// JSON

/// The document as JSON, UTF-8, with line feeds. docs/report.schema.json describes it.
QByteArray toJson(const Document &document);
/// The same with a member "redaction", which fromJson() ignores. \a document is one of \a redaction, or a
/// part of one.
QByteArray toJson(const Document &document, const Redaction &redaction);

/// What else the JSON can say about the document. fromJson() ignores it.
struct JsonNotes
{
    const Redaction *redaction = nullptr; ///< for the member "redaction"; null for none
    /// An object of JSON for the member "incomplete", which says what of the report could not be made; empty for none.
    QByteArray incomplete;
};

QByteArray toJson(const Document &document, const JsonNotes &notes);

/// Reads what toJson() wrote: the document of the same bytes. If it is anything else, returns
/// nothing and sets \a error to a message for the user.
std::optional<Document> fromJson(const QByteArray &json, QString *error = nullptr);

// ---------------------------------------------------------------------------------------------
// Comparison

enum class Difference {
    Changed,
    Added,
    Removed,
};

/// Which of two values is newer or larger; Unknown for texts and for values that cannot be ordered.
enum class Order {
    Unknown,
    OldIsNewer,
    NewIsNewer,
};

/// A fact of an item that was added or removed.
struct ItemFact
{
    int row = 0;   ///< index in factRows()
    QString value; ///< as Document::display() gives it
};

/// A fact, an item or a section that differs.
struct Change
{
    Difference difference = Difference::Changed;
    QString section; ///< name of the section
    /// Names of the items around the fact, outermost first: "deviceClass Display", "driver PCI\VEN_1002".
    /// The second item with the same identity is "driver PCI\VEN_1002 #2".
    QStringList items;
    int row = -1;     ///< index in factRows(); -1 if a whole item or section was added or removed
    QString oldValue; ///< as Document::display() gives it; empty if added
    QString newValue; ///< empty if removed
    /// Of a list, and of an environment variable whose entries are separated by semicolons. Both
    /// are empty if only the order differs.
    QStringList addedEntries;
    QStringList removedEntries;
    std::vector<ItemFact> facts; ///< of an item that was added or removed, with those of the items in it
    Order order = Order::Unknown;
    bool everyMoment = false;  ///< changes from moment to moment
    bool sameIdentity = false; ///< several items have that identity and were paired in order
};

struct Comparison
{
    /// In the order of the catalogue. The facts of an item precede those of the items in it; items
    /// that were added follow the others.
    std::vector<Change> changes;
    /// True if nothing differs but what changes every moment.
    bool same() const;
};

/// Compares the first report of each document. docs/comparing.md says how facts are paired and
/// when two values are equal.
Comparison compare(const Document &older, const Document &newer);

/// A fact, an item or a section that is not the same in all of several reports.
struct ComparisonRow
{
    QString section;   ///< as in Change
    QStringList items; ///< as in Change
    int row = -1;      ///< index in factRows(); -1 for an item or a section that some reports do not have
    /// One for each report: the value, or an empty text for an item or a section. Nothing if the
    /// report does not have it.
    std::vector<std::optional<QString>> values;
    bool everyMoment = false;
    bool sameIdentity = false;
};

struct ComparisonTable
{
    std::size_t reports = 0;         ///< how many were compared
    std::vector<ComparisonRow> rows; ///< in the order of Comparison::changes
    bool same() const;
};

/// Compares the first report of each of several documents. Values are different if one of them
/// differs from the first.
ComparisonTable compareSeveral(const std::vector<Document> &documents);

/// What the writers of comparisons show.
struct ComparisonOptions
{
    QStringList reportNames; ///< names of the reports for the reader, such as file names
    bool all = false;        ///< also what changes every moment
    bool colours = false;    ///< escape sequences for a terminal; text only
};

// The writers neutralise all values and names; the texts are UTF-8 with line feeds.

/// For people: text for a terminal.
QByteArray comparisonText(const Comparison &comparison, const ComparisonOptions &options);
QByteArray comparisonText(const ComparisonTable &table, const ComparisonOptions &options);
/// For programs: docs/comparison.schema.json describes it. It has all changes: options.all has no effect.
QByteArray comparisonJson(const Comparison &comparison, const ComparisonOptions &options);
QByteArray comparisonJson(const ComparisonTable &table, const ComparisonOptions &options);
/// For issue trackers.
QByteArray comparisonMarkdown(const Comparison &comparison, const ComparisonOptions &options);
QByteArray comparisonMarkdown(const ComparisonTable &table, const ComparisonOptions &options);
/// One file without scripts.
QByteArray comparisonHtml(const Comparison &comparison, const ComparisonOptions &options);
QByteArray comparisonHtml(const ComparisonTable &table, const ComparisonOptions &options);

// ---------------------------------------------------------------------------------------------
// Redaction
//
// Replaces what identifies somebody or something, and secrets, by aliases such as "user-1". The
// result is still a report: with the same headings, lines and facts. docs/privacy.md says what is
// found, where, and what cannot be found.

enum class AliasKind {
    User,         ///< "user-1"
    Host,         ///< "host-1"
    Domain,       ///< "domain-1"
    Organisation, ///< "org-1"
    Product,      ///< "product-1": product ids of Windows
    Serial,       ///< "serial-1"
    Mac,          ///< "mac-1"
    Ip,           ///< "ip-1"
    Printer,      ///< "printer-1"
    Label,        ///< "label-1": of a drive
    Share,        ///< "share-1": of a network drive
    Folder,       ///< "folder-1": below a user's folder or a share
    Secret,       ///< "secret-1"
    Word,         ///< "word-1": from RedactionOptions::hide
};

/// Why something was replaced.
enum class Reason {
    Fact = 0x1,          ///< it is the value of a fact that reveals it
    SameElsewhere = 0x2, ///< it occurs again, perhaps in another spelling
    Folder = 0x4,        ///< a path says what it is
    Form = 0x8,          ///< it looks like one: an address, a mail address, a key
    Environment = 0x10,  ///< it is the value of a variable that holds a name
    Hidden = 0x20,       ///< RedactionOptions::hide names it
};
Q_DECLARE_FLAGS(Reasons, Reason)
Q_DECLARE_OPERATORS_FOR_FLAGS(Reasons)

/// What was replaced, and by what.
struct Alias
{
    AliasKind kind = AliasKind::Word;
    QString text;  ///< such as "user-1"
    int count = 0; ///< how many places were replaced
    Reasons reasons;
    QStringList spellings; ///< as they stood in the texts, each once; none of a secret
};

struct RedactionOptions
{
    /// Key of the aliases. With a key an alias is "user-" and 12 digits of an HMAC (SHA-256), the
    /// same in every report that is redacted with this key. Without one, aliases are numbered in
    /// the order in which they are needed: the same alias in two calls means nothing.
    QByteArray key;
    /// Words or patterns to hide; see redactionEntryError().
    QStringList hide;
    /// Words or patterns to keep. An entry of hide has precedence.
    QStringList keep;
};

/// A place that was replaced. Line breaks stay: the place in the redacted text is an alias, or a length, and then the line
/// breaks of the original. The alias of a name that goes on in another line stands in the first one only.
struct Replacement
{
    int alias = -1;        ///< index in Redaction::aliases; -1 for the length of a value of a variable
    int begin = 0;         ///< offset in Document::text() of the redacted document
    int end = 0;           ///< may be equal to begin
    int originalBegin = 0; ///< offset in Document::text() of the document that was given
    int originalEnd = 0;
};

struct Redaction
{
    std::vector<Document> documents; ///< in the order in which they were given
    std::vector<Alias> aliases;      ///< in the order in which they occur
    int environmentValues = 0;       ///< how many values of variables became their length
    /// Of each document: every place that was replaced, in order. What is between them is as it was.
    std::vector<std::vector<Replacement>> replacements;
};

/// Replaces identities and secrets in all \a documents, which belong together: the same name has the
/// same alias in all of them. Redacting the result again changes nothing.
Redaction redact(const std::vector<Document> &documents, const RedactionOptions &options = {});

/// What is wrong with an entry of RedactionOptions::hide or keep; empty if nothing is. An entry is a
/// text of at most 256 characters, without line breaks, which is found in any case of letters. With "*" (any
/// number of characters), "?" (one) or "[...]" (one of these) it is a pattern of a whole word, as for
/// names of files; "[*]", "[?]" and "[[]" are these characters and make no pattern. Wrong entries are ignored by redact().
QString redactionEntryError(const QString &entry);

/// "user", "org": what precedes the hyphen of an alias.
QString aliasKindName(AliasKind kind);

/// What was replaced, how often and why, for people. The first line says that the result is not
/// anonymous. No original text is in it. UTF-8 with line feeds.
QByteArray redactionText(const Redaction &redaction);
/// The same for programs: an object of JSON.
QByteArray redactionJson(const Redaction &redaction);
/// What stands for what, without secrets: an object of JSON. Whoever has it can undo the redaction.
QByteArray aliasMapJson(const Redaction &redaction);

// ---------------------------------------------------------------------------------------------
// Formats for people
//
// Values come from strangers. In Markdown and HTML none of them has an effect: no mention, link,
// image, HTML or script. Text is copied as it is; terminalText() of the programs makes it harmless.

struct WriteOptions
{
    std::vector<int> sections; ///< indexes in sectionRows(); empty for everything
    /// For Markdown and text: the result has at most so many UTF-16 code units, which is how issue
    /// trackers count characters. What was left out is said in the result. 0 for no limit.
    int maxLength = 0;
    bool onlySummary = false; ///< writes summary() and nothing else
};

/// What support asks first. The value is not made harmless.
struct SummaryLine
{
    const char *key = ""; ///< stable name in camel case, such as "memory"
    QString label;        ///< for people, such as "Memory"
    QString value;
};

/// At most 20 lines, and one more for each further disk that is nearly full and each call that failed.
/// Lines about facts that the document does not have are missing.
std::vector<SummaryLine> summary(const Document &document);

/// The sections of \a options as they stand in the text. All of them without a limit are the bytes
/// that were read.
QByteArray toText(const Document &document, const WriteOptions &options = {});
/// Markdown for issue trackers: tables, and code blocks in folds.
QByteArray toMarkdown(const Document &document, const WriteOptions &options = {});
/// One page without scripts, which loads nothing.
QByteArray toHtml(const Document &document, const WriteOptions &options = {});

} // namespace Reports
} // namespace velkor
