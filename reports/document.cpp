#include "document_data.h"

#include "decoded_text.h"
#include "reader.h"
#include "text_encoding.h"
#include "value_lines.h"
#include "values.h"

#include <cstring>

namespace velkor {
namespace Reports {

namespace {

/// The bytes of a value, line by line, without the quotes and line ends between them.
std::vector<QByteArray> linesOf(const DocumentData &data, const Fact &fact)
{
    std::vector<QByteArray> lines;
    for (const ValueLine &line : valueLines(data, fact.begin, fact.end))
        lines.push_back(data.text.mid(line.begin, line.end - line.begin));
    return lines;
}

QByteArray joined(const std::vector<QByteArray> &lines, char separator)
{
    QByteArray text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0)
            text += separator;
        text += lines[i];
    }
    return text;
}

bool isList(const FactRow &row)
{
    return row.type == Type::List;
}

/// The entries that stand on lines of their own, without their indentation.
std::vector<QByteArray> indentedEntries(const std::vector<QByteArray> &lines, bool wrapped)
{
    std::vector<QByteArray> entries;
    for (const QByteArray &line : lines) {
        int blanks = 0;
        while (blanks < line.size() && blankLength(line.constData(), blanks, line.size()) > 0)
            blanks += blankLength(line.constData(), blanks, line.size());
        if (wrapped && blanks == 0 && !entries.empty())
            entries.back() += ' ' + line;
        else
            entries.push_back(entries.empty() ? line : line.mid(blanks));
    }
    return entries;
}

std::vector<QByteArray> spacedEntries(const QByteArray &value)
{
    std::vector<QByteArray> entries;
    const QList<QByteArray> parts = value.split(' ');
    for (const QByteArray &part : parts) {
        if (!part.isEmpty())
            entries.push_back(part);
    }
    return entries;
}

QString baseName(const QString &path)
{
    const int slash = std::max(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/')));
    return path.mid(slash + 1).toLower();
}

const std::shared_ptr<const DocumentData> &emptyData()
{
    static const std::shared_ptr<const DocumentData> data = std::make_shared<DocumentData>();
    return data;
}

} // namespace

QStringList stateNames(States states)
{
    static constexpr const char *names[] = {
        "crLf",
        "mailQuotes",
        "byteOrderMark",
        "utf16",
        "trailingBlanksStripped",
        "leadingBlanksStripped",
        "blanksCollapsed",
        "noBreakSpaces",
        "wrappedLines",
        "foreignText",
        "startMissing",
        "endMissing",
        "sectionsMissing",
        "nativeDigits",
        "severalReports",
        "noReport",
        "ambiguous",
        "notUtf8",
    };
    QStringList result;
    int bit = 0;
    for (const char *name : names) {
        if (int(states) & (1 << bit))
            result += QString::fromLatin1(name);
        ++bit;
    }
    return result;
}

Document::Document()
    : d(emptyData())
{
}

Document::Document(std::shared_ptr<const DocumentData> data)
    : d(std::move(data))
{
}

QByteArray Document::bytes() const
{
    if (d->encoding == "UTF-16LE")
        return toUtf16(d->text, Encoding::Utf16LittleEndian) + d->tail;
    if (d->encoding == "UTF-16BE")
        return toUtf16(d->text, Encoding::Utf16BigEndian) + d->tail;
    return d->text;
}

const QByteArray &Document::text() const
{
    return d->text;
}

QByteArray Document::encoding() const
{
    return d->encoding;
}

QByteArray Document::lineEnd() const
{
    return d->lineEnd;
}

QByteArray Document::linePrefix() const
{
    return d->linePrefix;
}

States Document::states() const
{
    return d->states;
}

const std::vector<int> &Document::ambiguous() const
{
    return d->ambiguous;
}

const std::vector<Section> &Document::sections() const
{
    return d->sections;
}

const std::vector<Item> &Document::items() const
{
    return d->items;
}

const std::vector<Fact> &Document::facts() const
{
    return d->facts;
}

std::vector<Place> Document::places() const
{
    std::vector<Place> places;
    int at = 0;
    const auto put = [&](PlaceKind kind, int begin, int end, int fact) {
        if (begin > at)
            places.push_back({PlaceKind::Label, at, begin, -1});
        if (end > begin)
            places.push_back({kind, begin, end, fact});
        at = end;
    };
    std::size_t fact = 0;
    for (const Mark &mark : d->marks) {
        for (; fact < d->facts.size() && d->facts[fact].begin < mark.begin; ++fact)
            put(PlaceKind::Value, d->facts[fact].begin, d->facts[fact].end, int(fact));
        put(mark.kind, mark.begin, mark.end, -1);
    }
    for (; fact < d->facts.size(); ++fact)
        put(PlaceKind::Value, d->facts[fact].begin, d->facts[fact].end, int(fact));
    put(PlaceKind::Label, d->text.size(), d->text.size(), -1);
    return places;
}

const FactRow &Document::row(const Fact &fact) const
{
    return factRows()[std::size_t(fact.row)];
}

QByteArray Document::value(const Fact &fact) const
{
    const char last = d->lineEnd[d->lineEnd.size() - 1];
    if (!std::memchr(d->text.constData() + fact.begin, last, std::size_t(fact.end - fact.begin)))
        return d->text.mid(fact.begin, fact.end - fact.begin);
    if (isList(row(fact)))
        return joined(values(fact), row(fact).form & Indented ? '\n' : ' ');
    return joined(linesOf(*d, fact), d->states.testFlag(State::WrappedLines) ? ' ' : '\n');
}

QString Document::display(const Fact &fact) const
{
    QString text = decodedText(value(fact));
    text.replace(QChar(QChar::Nbsp), QLatin1Char(' '));
    return text.trimmed();
}

std::vector<QByteArray> Document::values(const Fact &fact) const
{
    const std::vector<QByteArray> lines = linesOf(*d, fact);
    const bool wrapped = d->states.testFlag(State::WrappedLines);
    if (!isList(row(fact)))
        return {joined(lines, wrapped ? ' ' : '\n')};
    if (row(fact).form & Indented)
        return indentedEntries(lines, wrapped);
    return spacedEntries(joined(lines, wrapped ? ' ' : '\n'));
}

std::optional<qint64> Document::integer(const Fact &fact) const
{
    return integerOf(value(fact));
}

std::optional<quint64> Document::bytes64(const Fact &fact) const
{
    return bytesOf(value(fact));
}

std::optional<double> Document::real(const Fact &fact) const
{
    return realOf(value(fact));
}

QString Document::isoDate(const Fact &fact) const
{
    return isoDateOf(display(fact));
}

const Fact *Document::find(int section, int item, const char *key) const
{
    if (section < 0)
        return nullptr;
    const bool inItem = item >= 0;
    const int first = inItem ? d->items[std::size_t(item)].firstFact : d->sections[std::size_t(section)].firstFact;
    const int last = inItem ? d->items[std::size_t(item)].lastFact : d->sections[std::size_t(section)].lastFact;
    for (int i = first; i < last; ++i) {
        const Fact &fact = d->facts[std::size_t(i)];
        if (fact.item == item && std::strcmp(row(fact).key, key) == 0)
            return &fact;
    }
    return nullptr;
}

int Document::findSection(const char *name) const
{
    for (std::size_t i = 0; i < d->sections.size(); ++i) {
        if (std::strcmp(sectionRows()[std::size_t(d->sections[i].row)].name, name) == 0)
            return int(i);
    }
    return -1;
}

QString Document::identity(int item) const
{
    const Item &place = d->items[std::size_t(item)];
    const ItemRow &row = itemRows()[std::size_t(place.kind)];
    const Fact *fact = find(place.section, item, row.identity);
    if ((!fact || display(*fact).isEmpty()) && *row.otherIdentity != '\0')
        fact = find(place.section, item, row.otherIdentity);
    if (!fact)
        return {};
    if (std::strcmp(row.kind, "module") == 0)
        return baseName(display(*fact));
    return std::strcmp(row.kind, "drive") == 0 ? display(*fact).left(1) : display(*fact);
}

const DocumentData &Document::data() const
{
    return *d;
}

Document read(const QByteArray &bytes)
{
    const auto data = std::make_shared<DocumentData>();
    const Encoding encoding = detectEncoding(bytes);
    data->text = encoding == Encoding::Utf8 ? bytes : fromUtf16(bytes, encoding);
    if (encoding != Encoding::Utf8) {
        data->encoding = encoding == Encoding::Utf16LittleEndian ? "UTF-16LE" : "UTF-16BE";
        data->tail = bytes.size() % 2 == 1 ? bytes.right(1) : QByteArray();
        data->states |= State::Utf16;
    }
    data->states.setFlag(State::NotUtf8, encoding == Encoding::Utf8 && !isUtf8(data->text));
    const Transport transport = detectTransport(data->text);
    data->lineEnd = transport.lineEnd;
    data->doubleSpaced = transport.doubleSpaced;
    data->carriageReturns = transport.carriageReturns;
    data->linePrefix = transport.linePrefix;
    Reader(*data, transport).read();
    return Document(data);
}

} // namespace Reports
} // namespace velkor
