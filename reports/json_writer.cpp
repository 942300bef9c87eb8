#include "json_writer.h"

#include "json_names.h"
#include "line_plan.h"
#include "text_encoding.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QLocale>
#include <algorithm>
#include <cmath>
#include <limits>

namespace velkor {
namespace Reports {

namespace {

/// C0 other than tab, line feed and carriage return; DEL and C1.
bool hasControls(const QByteArray &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const uchar byte = uchar(text[i]);
        const bool isAllowed = byte == '\t' || byte == '\n' || byte == '\r';
        if ((byte < 0x20 && !isAllowed) || byte == 0x7f)
            return true;
        if (byte == 0xc2 && i + 1 < text.size() && uchar(text[i + 1]) < 0xa0)
            return true;
    }
    return false;
}

QByteArray quoted(const QByteArray &text)
{
    QByteArray json;
    json.reserve(text.size() + 2);
    json += '"';
    for (const char byte : text) {
        switch (byte) {
        case '"':
            json += "\\\"";
            break;
        case '\\':
            json += "\\\\";
            break;
        case '\t':
            json += "\\t";
            break;
        case '\n':
            json += "\\n";
            break;
        case '\r':
            json += "\\r";
            break;
        default:
            json += byte;
        }
    }
    json += '"';
    return json;
}

template <typename Number>
QByteArray decimalText(const std::optional<Number> &number)
{
    return number ? '"' + QByteArray::number(*number) + '"' : QByteArray("null");
}

QByteArray integerValue(const std::optional<qint64> &number)
{
    const bool fits = number && *number >= std::numeric_limits<qint32>::min() && *number <= std::numeric_limits<quint32>::max();
    return fits ? QByteArray::number(*number) : QByteArray("null");
}

QByteArray realValue(const std::optional<double> &number)
{
    if (!number || !std::isfinite(*number))
        return "null";
    return QByteArray::number(*number, 'g', QLocale::FloatingPointShortest);
}

QByteArray valueOf(const Document &document, const Fact &fact, Type type)
{
    switch (type) {
    case Type::Number:
        return integerValue(document.integer(fact));
    case Type::Number64:
        return decimalText(document.integer(fact));
    case Type::Bytes:
        return decimalText(document.bytes64(fact));
    case Type::Real:
        return realValue(document.real(fact));
    case Type::Date: {
        const QByteArray date = document.isoDate(fact).toUtf8();
        return date.isEmpty() ? QByteArray("null") : quoted(date);
    }
    case Type::Text:
    case Type::Version:
    case Type::List:
        break;
    }
    return {};
}

class JsonWriter
{
public:
    JsonWriter(const Document &document, JsonStyle style)
        : m_document(document), m_isCompact(style == JsonStyle::Compact)
    {
    }
    QByteArray write(const StoredText &stored, const JsonMembers &notes);
    QByteArray writeSection(const TreeNode &section);

private:
    void addHead(const StoredText &stored, const JsonMembers &notes);
    void addMember(const char *key, const QByteArray &value);
    void addReports(const ReportTrees &trees);
    void addSection(const TreeNode &section);
    void addFacts(const TreeNode &section);
    void addItem(const TreeNode &item, int indent);
    void addItems(const TreeNode &node, int kind, int indent);
    void addLayout(const std::vector<LineEdit> &layout);
    QByteArray fact(const TreeFact &fact) const;
    QByteArray array(const std::vector<QByteArray> &values) const;

    /// A comma unless this is the first element, and a new line.
    void startLine(bool &first, int indent);
    /// The same without a new line.
    void startElement(bool &first);
    void newLine(int indent);
    QByteArray key(const char *name) const { return quoted(name) + (m_isCompact ? ":" : ": "); }

    const Document &m_document;
    bool m_isCompact;
    bool m_firstMember = true;
    QByteArray m_json;
};

void JsonWriter::newLine(int indent)
{
    if (!m_isCompact)
        m_json += '\n' + QByteArray(indent, ' ');
}

void JsonWriter::startLine(bool &first, int indent)
{
    if (!first)
        m_json += ',';
    newLine(indent);
    first = false;
}

void JsonWriter::startElement(bool &first)
{
    if (!first)
        m_json += m_isCompact ? "," : ", ";
    first = false;
}

void JsonWriter::addMember(const char *name, const QByteArray &value)
{
    startLine(m_firstMember, 1);
    m_json += key(name) + value;
}

QByteArray JsonWriter::array(const std::vector<QByteArray> &values) const
{
    QByteArray json = "[";
    for (const QByteArray &value : values)
        json += (json.size() > 1 ? (m_isCompact ? "," : ", ") : "") + jsonText(value);
    return json + ']';
}

std::vector<QByteArray> blankNames(const TextForm &form)
{
    std::vector<QByteArray> names;
    if (form.collapsed)
        names.push_back(Json::Blanks::collapsed);
    if (form.leadingStripped)
        names.push_back(Json::Blanks::leadingStripped);
    if (form.trailingStripped)
        names.push_back(Json::Blanks::trailingStripped);
    if (form.noBreak == TextForm::NoBreak::All)
        names.push_back(Json::Blanks::noBreak);
    if (form.noBreak == TextForm::NoBreak::Runs)
        names.push_back(Json::Blanks::noBreakRuns);
    return names;
}

void JsonWriter::addHead(const StoredText &stored, const JsonMembers &notes)
{
    namespace Key = Json::Key;
    std::vector<QByteArray> states;
    for (const QString &name : stateNames(m_document.states()))
        states.push_back(name.toUtf8());
    addMember(Key::format, quoted(Json::formatName));
    addMember(Key::schemaVersion, QByteArray::number(schemaVersion));
    if (!notes.redaction.isEmpty())
        addMember(Key::redaction, notes.redaction);
    if (!notes.incomplete.isEmpty())
        addMember(Key::incomplete, notes.incomplete);
    addMember(Key::sha256, quoted(QCryptographicHash::hash(m_document.bytes(), QCryptographicHash::Sha256).toHex()));
    addMember(Key::states, array(states));
    addMember(Key::encoding, quoted(stored.encoding));
    addMember(Key::byteOrderMark, stored.hasMark ? "true" : "false");
    if (!stored.tail.isEmpty())
        addMember(Key::tail, jsonText(stored.tail));
    addMember(Key::lineEnd, quoted(stored.form.lineEnd));
    addMember(Key::linePrefix, jsonText(stored.form.linePrefix));
    addMember(Key::blanks, array(blankNames(stored.form)));
}

QByteArray JsonWriter::fact(const TreeFact &fact) const
{
    const FactRow &row = factRows()[size_t(fact.row)];
    if (row.type == Type::List)
        return array(fact.entries);
    if (row.type == Type::Text || row.type == Type::Version)
        return jsonText(fact.text);
    const QByteArray value = valueOf(m_document, m_document.facts()[size_t(fact.fact)], row.type);
    return '{' + key(Json::Key::value) + value + (m_isCompact ? "," : ", ") + key(Json::Key::text) + jsonText(fact.text) + '}';
}

bool hasKind(const TreeNode &node, int kind)
{
    return std::any_of(node.items.begin(), node.items.end(), [kind](const TreeNode &item) { return item.kind == kind; });
}

/// The rows of the facts of \a step that \a node has and \a written does not. They are added to it.
std::vector<int> factsOf(const TreeNode &node, const LineStep &step, std::vector<int> &written)
{
    std::vector<int> facts;
    for (const int row : step.rows) {
        if (node.find(row) && std::find(written.begin(), written.end(), row) == written.end()) {
            facts.push_back(row);
            written.push_back(row);
        }
    }
    return facts;
}

void JsonWriter::addFacts(const TreeNode &section)
{
    bool first = true;
    std::vector<int> written;
    m_json += key(Json::Key::facts) + '{';
    for (const LineStep &step : lineSteps(section.row, sectionItself)) {
        for (const int row : factsOf(section, step, written)) {
            startLine(first, 4);
            m_json += key(factRows()[size_t(row)].key) + fact(*section.find(row));
        }
    }
    m_json += '}';
}

void JsonWriter::addItem(const TreeNode &item, int indent)
{
    bool first = true;
    std::vector<int> written;
    m_json += '{';
    for (const LineStep &step : lineSteps(item.row, item.kind)) {
        for (const int row : factsOf(item, step, written)) {
            startElement(first);
            m_json += key(factRows()[size_t(row)].key) + fact(*item.find(row));
        }
        if (step.what == LineStep::What::Items && hasKind(item, step.kind)) {
            startElement(first);
            addItems(item, step.kind, indent + 1);
        }
    }
    m_json += '}';
}

void JsonWriter::addItems(const TreeNode &node, int kind, int indent)
{
    bool first = true;
    m_json += key(itemRows()[size_t(kind)].list) + '[';
    for (const TreeNode &item : node.items) {
        if (item.kind != kind)
            continue;
        startLine(first, indent);
        addItem(item, indent);
    }
    m_json += ']';
}

void JsonWriter::addSection(const TreeNode &section)
{
    m_json += '{' + key(Json::Key::name) + quoted(sectionRows()[size_t(section.row)].name) + (m_isCompact ? "," : ", ");
    if (section.isLeftOut) {
        m_json += key(Json::Key::leftOut) + "true}";
        return;
    }
    addFacts(section);
    bool first = false;
    for (const LineStep &step : lineSteps(section.row, sectionItself)) {
        if (step.what != LineStep::What::Items || !hasKind(section, step.kind))
            continue;
        startLine(first, 3);
        addItems(section, step.kind, 4);
    }
    m_json += '}';
}

void JsonWriter::addReports(const ReportTrees &trees)
{
    addMember(Json::Key::reports, "[");
    bool firstReport = true;
    for (const std::vector<TreeNode> &sections : trees) {
        startLine(firstReport, 2);
        m_json += '{' + key(Json::Key::sections) + '[';
        bool first = true;
        for (const TreeNode &section : sections) {
            startLine(first, 3);
            addSection(section);
        }
        m_json += "]}";
    }
    m_json += ']';
}

void JsonWriter::addLayout(const std::vector<LineEdit> &layout)
{
    addMember(Json::Key::layout, "[");
    bool first = true;
    for (const LineEdit &edit : layout) {
        startElement(first);
        m_json += edit.lines != 0 ? QByteArray::number(edit.lines) : jsonText(edit.text);
    }
    m_json += ']';
}

QByteArray JsonWriter::write(const StoredText &stored, const JsonMembers &notes)
{
    m_json = "{";
    addHead(stored, notes);
    addReports(stored.trees);
    addLayout(stored.layout);
    newLine(0);
    return m_json + "}\n";
}

QByteArray JsonWriter::writeSection(const TreeNode &section)
{
    addSection(section);
    return m_json;
}

} // namespace

QByteArray jsonText(const QByteArray &bytes)
{
    if (isUtf8(bytes) && !hasControls(bytes))
        return quoted(bytes);
    return "{\"base64\":\"" + bytes.toBase64() + "\"}";
}

QByteArray jsonDocument(const Document &document, const StoredText &stored, JsonStyle style, const JsonMembers &notes)
{
    return JsonWriter(document, style).write(stored, notes);
}

QByteArray jsonOfSection(const Document &document, const TreeNode &section)
{
    return JsonWriter(document, JsonStyle::Compact).writeSection(section);
}

} // namespace Reports
} // namespace velkor
