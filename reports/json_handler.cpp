#include "json_handler.h"

#include "json_keys.h"
#include "json_names.h"
#include "line_plan.h"
#include "text_form.h"

#include <algorithm>
#include <limits>

namespace velkor {
namespace Reports {

namespace {

namespace Key = Json::Key;

constexpr int shownLength = 40;    // of a stranger's text in a message
constexpr size_t maximalDepth = 3; // a section, an item and an item in it
constexpr int maximalIgnoredDepth = 16;

/// A stranger's text for a message: short, in ASCII and without control characters.
QString shown(const std::string &text)
{
    QString result;
    for (const char byte : text.substr(0, shownLength))
        result += byte >= ' ' && byte <= '~' ? QLatin1Char(byte) : QLatin1Char('?');
    return text.size() > shownLength ? result + QStringLiteral("...") : result;
}

QString shown(int key)
{
    return QString::fromLatin1(keyName(key).c_str());
}

std::optional<QByteArray> fromBase64(const std::string &text)
{
    const auto result = QByteArray::fromBase64Encoding(QByteArray::fromStdString(text),
                                                       QByteArray::AbortOnBase64DecodingErrors);
    return result ? std::make_optional(result.decoded) : std::nullopt;
}

/// True if facts of that type have such a value in JSON.
bool fits(Type type, JsonValue value)
{
    switch (type) {
    case Type::Text:
    case Type::Version:
        return value == JsonValue::Text;
    case Type::List:
        return value == JsonValue::List;
    case Type::Number:
        return value == JsonValue::Integer || value == JsonValue::Null;
    case Type::Real:
        return value == JsonValue::Real || value == JsonValue::Integer || value == JsonValue::Null;
    case Type::Number64:
    case Type::Bytes:
    case Type::Date:
        return value == JsonValue::String || value == JsonValue::Null;
    }
    return false;
}

} // namespace

JsonHandler::JsonHandler()
{
    m_frames.emplace_back();
}

// Messages

QString JsonHandler::path() const
{
    QString path;
    for (const Frame &frame : m_frames) {
        if (frame.key >= 0)
            path += (path.isEmpty() ? QString() : QStringLiteral(".")) + shown(frame.key);
        else if (isArray(frame.place))
            path += QLatin1Char('[') + QString::number(frame.index) + QLatin1Char(']');
    }
    return path;
}

bool JsonHandler::isArray(Place place)
{
    return place == Place::States || place == Place::Blanks || place == Place::Reports || place == Place::Sections
        || place == Place::Items || place == Place::Entries || place == Place::Layout;
}

bool JsonHandler::fail(const QString &message)
{
    const QString place = path();
    m_error = place.isEmpty() ? message : place + QStringLiteral(": ") + message;
    return false;
}

bool JsonHandler::unexpected()
{
    return fail(QStringLiteral("this kind of value is not expected here"));
}

bool JsonHandler::parse_error(std::size_t position, const std::string &, const nlohmann::detail::exception &)
{
    return fail(QStringLiteral("no valid JSON at byte %1").arg(position));
}

// Places

bool JsonHandler::isAt(Place place, const char *name) const
{
    const Frame &frame = m_frames.back();
    return frame.place == place && frame.key >= 0 && keyName(frame.key) == name;
}

bool JsonHandler::isFact() const
{
    const Frame &frame = m_frames.back();
    return (frame.place == Place::Facts || frame.place == Place::Item) && frame.key >= 0 && isFactKey(frame.key);
}

bool JsonHandler::open(Place place)
{
    m_frames.emplace_back();
    m_frames.back().place = place;
    return true;
}

bool JsonHandler::close()
{
    m_frames.pop_back();
    return valueEnds();
}

/// Goes on to the next member or element.
bool JsonHandler::valueEnds()
{
    Frame &frame = m_frames.back();
    frame.key = -1;
    ++frame.index;
    return true;
}

bool JsonHandler::hasSeen(const Frame &frame, const char *name) const
{
    return std::find(frame.seen.begin(), frame.seen.end(), keyNumber(name)) != frame.seen.end();
}

// A member whose value is ignored: it can hold anything.

bool JsonHandler::isIgnored() const
{
    return m_ignoredDepth > 0 || isAt(Place::Root, Key::redaction) || isAt(Place::Root, Key::incomplete);
}

bool JsonHandler::ignoredValueEnds()
{
    return m_ignoredDepth > 0 || valueEnds();
}

bool JsonHandler::openIgnored()
{
    if (m_ignoredDepth == maximalIgnoredDepth)
        return fail(QStringLiteral("more than %1 objects and arrays in each other").arg(maximalIgnoredDepth));
    ++m_ignoredDepth;
    return true;
}

bool JsonHandler::closeIgnored()
{
    --m_ignoredDepth;
    return ignoredValueEnds();
}

// Events

bool JsonHandler::null()
{
    if (isIgnored())
        return ignoredValueEnds();
    if (!isAt(Place::Value, Key::value))
        return unexpected();
    m_nodes.back()->facts.back().value = JsonValue::Null;
    return valueEnds();
}

bool JsonHandler::boolean(bool value)
{
    if (isIgnored())
        return ignoredValueEnds();
    if (isAt(Place::Root, Key::byteOrderMark))
        m_stored.hasMark = value;
    else if (!isAt(Place::Section, Key::leftOut) || !value)
        return unexpected();
    return valueEnds();
}

bool JsonHandler::number_integer(qlonglong value)
{
    return integer(value);
}

bool JsonHandler::number_unsigned(qulonglong value)
{
    if (isIgnored())
        return ignoredValueEnds();
    if (value > qulonglong(std::numeric_limits<qint64>::max()))
        return fail(QStringLiteral("the number is too large"));
    return integer(qint64(value));
}

bool JsonHandler::integer(qint64 value)
{
    if (isIgnored())
        return ignoredValueEnds();
    if (isAt(Place::Root, Key::schemaVersion)) {
        if (value != schemaVersion)
            return fail(QStringLiteral("version %1 of the JSON form is not known, only version %2").arg(value).arg(schemaVersion));
    } else if (isAt(Place::Value, Key::value)) {
        m_nodes.back()->facts.back().value = JsonValue::Integer;
    } else if (m_frames.back().place == Place::Layout) {
        if (value == 0 || value < -maximalText || value > maximalText)
            return fail(QStringLiteral("the count of lines is out of range"));
        m_stored.layout.push_back({int(value), {}});
    } else {
        return unexpected();
    }
    return valueEnds();
}

bool JsonHandler::number_float(double, const std::string &)
{
    if (isIgnored())
        return ignoredValueEnds();
    if (isAt(Place::Root, Key::schemaVersion))
        return fail(QStringLiteral("the version is no integer"));
    if (!isAt(Place::Value, Key::value))
        return unexpected();
    m_nodes.back()->facts.back().value = JsonValue::Real;
    return valueEnds();
}

bool JsonHandler::binary(std::vector<std::uint8_t> &)
{
    return unexpected();
}

bool JsonHandler::string(std::string &value)
{
    if (isIgnored())
        return ignoredValueEnds();
    if (isAt(Place::Value, Key::value)) {
        m_nodes.back()->facts.back().value = JsonValue::String;
        return valueEnds();
    }
    if (isAt(Place::Value, Key::base64) || isAt(Place::Base64, Key::base64)) {
        const std::optional<QByteArray> bytes = fromBase64(value);
        if (!bytes)
            return fail(QStringLiteral("no valid base64"));
        m_base64 = *bytes;
        return valueEnds();
    }
    if (isAt(Place::Section, Key::name)) {
        m_section.section = sectionRowOf(value);
        if (m_section.section < 0)
            return fail(QStringLiteral("there is no section \"%1\"").arg(shown(value)));
        return valueEnds();
    }
    if (m_frames.back().place == Place::States)
        return stateName(value);
    if (m_frames.back().place == Place::Blanks)
        return blankName(value);
    if (m_frames.back().place == Place::Root && !isAt(Place::Root, Key::linePrefix) && !isAt(Place::Root, Key::tail))
        return rootString(value);
    if (value.size() > size_t(maximalText))
        return fail(QStringLiteral("the text is too long"));
    return text(QByteArray::fromStdString(value));
}

bool JsonHandler::rootString(const std::string &value)
{
    const QByteArray bytes = QByteArray::fromStdString(value);
    if (isAt(Place::Root, Key::format)) {
        if (value != Json::formatName)
            return fail(QStringLiteral("\"%1\" is no report").arg(shown(value)));
    } else if (isAt(Place::Root, Key::sha256)) {
        m_sha256 = QByteArray::fromHex(bytes);
        if (m_sha256.toHex() != bytes || m_sha256.size() != 32)
            return fail(QStringLiteral("no SHA-256 in hexadecimal digits"));
    } else if (isAt(Place::Root, Key::encoding)) {
        if (value != "UTF-8" && value != "UTF-16LE" && value != "UTF-16BE")
            return fail(QStringLiteral("the encoding \"%1\" is not known").arg(shown(value)));
        m_stored.encoding = bytes;
    } else if (isAt(Place::Root, Key::lineEnd)) {
        const std::vector<QByteArray> &known = knownLineEnds();
        if (std::find(known.begin(), known.end(), bytes) == known.end())
            return fail(QStringLiteral("the line end is not known"));
        m_stored.form.lineEnd = bytes;
    } else {
        return unexpected();
    }
    return valueEnds();
}

bool JsonHandler::stateName(const std::string &name)
{
    static const QStringList known = stateNames(States(QFlag(-1)));
    if (!known.contains(QString::fromStdString(name)))
        return fail(QStringLiteral("the state \"%1\" is not known").arg(shown(name)));
    return valueEnds();
}

bool JsonHandler::blankName(const std::string &name)
{
    TextForm &form = m_stored.form;
    if (name == Json::Blanks::collapsed)
        form.collapsed = true;
    else if (name == Json::Blanks::leadingStripped)
        form.leadingStripped = true;
    else if (name == Json::Blanks::trailingStripped)
        form.trailingStripped = true;
    else if (name == Json::Blanks::noBreak)
        form.noBreak = TextForm::NoBreak::All;
    else if (name == Json::Blanks::noBreakRuns)
        form.noBreak = TextForm::NoBreak::Runs;
    else
        return fail(QStringLiteral("\"%1\" is not known").arg(shown(name)));
    return valueEnds();
}

/// A string, or the bytes of an object with base64.
bool JsonHandler::text(const QByteArray &bytes)
{
    if (isAt(Place::Root, Key::linePrefix)) {
        if (bytes.size() > maximalPrefix)
            return fail(QStringLiteral("more than %1 bytes").arg(maximalPrefix));
        m_stored.form.linePrefix = bytes;
    } else if (isAt(Place::Root, Key::tail)) {
        if (bytes.size() != 1)
            return fail(QStringLiteral("not one byte"));
        m_stored.tail = bytes;
    } else if (isFact()) {
        JsonFact fact;
        fact.key = m_frames.back().key;
        fact.text = bytes;
        m_nodes.back()->facts.push_back(std::move(fact));
    } else if (isAt(Place::Value, Key::text)) {
        m_nodes.back()->facts.back().text = bytes;
    } else if (m_frames.back().place == Place::Entries) {
        m_nodes.back()->facts.back().entries.push_back(bytes);
    } else if (m_frames.back().place == Place::Layout) {
        m_stored.layout.push_back({0, bytes});
    } else {
        return unexpected();
    }
    return valueEnds();
}

bool JsonHandler::key(std::string &name)
{
    if (m_ignoredDepth > 0)
        return true;
    Frame &frame = m_frames.back();
    const int number = keyNumber(name);
    if (number < 0)
        return fail(QStringLiteral("the key \"%1\" is not known").arg(shown(name)));
    if (std::find(frame.seen.begin(), frame.seen.end(), number) != frame.seen.end())
        return fail(QStringLiteral("the key \"%1\" is there twice").arg(shown(name)));
    frame.seen.push_back(number);
    frame.key = number;
    return true;
}

bool JsonHandler::openFact(Place place, JsonValue value)
{
    JsonFact fact;
    fact.key = m_frames.back().key;
    fact.value = value;
    m_nodes.back()->facts.push_back(std::move(fact));
    return open(place);
}

bool JsonHandler::start_object(std::size_t)
{
    if (isIgnored())
        return openIgnored();
    const Place place = m_frames.back().place;
    if (place == Place::Outside)
        return open(Place::Root);
    if (place == Place::Reports) {
        m_stored.trees.emplace_back();
        return open(Place::Report);
    }
    if (place == Place::Sections) {
        m_section = JsonNode();
        m_nodes = {&m_section};
        return open(Place::Section);
    }
    if (place == Place::Items) {
        if (m_nodes.size() == maximalDepth)
            return fail(QStringLiteral("items in items in items are not known"));
        JsonNode item;
        item.list = m_frames[m_frames.size() - 2].key;
        m_nodes.back()->items.push_back(std::move(item));
        m_nodes.push_back(&m_nodes.back()->items.back());
        return open(Place::Item);
    }
    if (isAt(Place::Section, Key::facts))
        return open(Place::Facts);
    if (isFact())
        return openFact(Place::Value, JsonValue::Text);
    const bool isText = place == Place::Entries || place == Place::Layout || isAt(Place::Value, Key::text)
        || isAt(Place::Root, Key::linePrefix) || isAt(Place::Root, Key::tail);
    return isText ? open(Place::Base64) : unexpected();
}

bool JsonHandler::start_array(std::size_t)
{
    if (isIgnored())
        return openIgnored();
    const Frame &frame = m_frames.back();
    if (isAt(Place::Root, Key::states))
        return open(Place::States);
    if (isAt(Place::Root, Key::blanks))
        return open(Place::Blanks);
    if (isAt(Place::Root, Key::reports))
        return open(Place::Reports);
    if (isAt(Place::Root, Key::layout))
        return open(Place::Layout);
    if (isAt(Place::Report, Key::sections))
        return open(Place::Sections);
    if (isFact())
        return openFact(Place::Entries, JsonValue::List);
    const bool hasItems = frame.place == Place::Section || frame.place == Place::Item;
    return hasItems && isListKey(frame.key) ? open(Place::Items) : unexpected();
}

bool JsonHandler::end_array()
{
    return m_ignoredDepth > 0 ? closeIgnored() : close();
}

bool JsonHandler::end_object()
{
    if (m_ignoredDepth > 0)
        return closeIgnored();
    switch (m_frames.back().place) {
    case Place::Root:
        return closeRoot();
    case Place::Report:
        return hasSeen(m_frames.back(), Key::sections) ? close() : fail(QStringLiteral("\"sections\" is missing"));
    case Place::Section:
        return closeSection();
    case Place::Item:
        if (m_nodes.back()->facts.empty() && m_nodes.back()->items.empty())
            return fail(QStringLiteral("the item is empty"));
        m_nodes.pop_back();
        return close();
    case Place::Value:
        return closeFact();
    case Place::Base64:
        return closeBase64();
    default:
        return close();
    }
}

bool JsonHandler::closeFact()
{
    const Frame &frame = m_frames.back();
    JsonFact &fact = m_nodes.back()->facts.back();
    if (hasSeen(frame, Key::base64) && frame.seen.size() == 1)
        fact.text = std::move(m_base64);
    else if (frame.seen.size() != 2 || !hasSeen(frame, Key::value) || !hasSeen(frame, Key::text))
        return fail(QStringLiteral("neither \"value\" and \"text\", nor \"base64\""));
    return close();
}

bool JsonHandler::closeBase64()
{
    if (!hasSeen(m_frames.back(), Key::base64))
        return fail(QStringLiteral("\"base64\" is missing"));
    m_frames.pop_back();
    return text(std::exchange(m_base64, {}));
}

bool JsonHandler::closeSection()
{
    if (m_section.section < 0)
        return fail(QStringLiteral("\"name\" is missing"));
    const bool isLeftOut = hasSeen(m_frames.back(), Key::leftOut);
    if (hasSeen(m_frames.back(), Key::facts) == isLeftOut || (isLeftOut && !m_section.items.empty()))
        return fail(QStringLiteral("neither \"facts\" nor \"leftOut\" alone"));
    TreeNode node;
    if (!resolve(m_section, m_section.section, sectionItself, node))
        return false;
    m_stored.trees.back().push_back(std::move(node));
    return close();
}

bool JsonHandler::closeRoot()
{
    for (const char *name : {Key::format, Key::schemaVersion, Key::encoding, Key::byteOrderMark, Key::lineEnd,
                             Key::linePrefix, Key::blanks, Key::reports, Key::layout}) {
        if (!hasSeen(m_frames.back(), name))
            return fail(QStringLiteral("\"%1\" is missing").arg(QLatin1String(name)));
    }
    return close();
}

// Sections

bool JsonHandler::resolve(JsonNode &source, int section, int kind, TreeNode &node)
{
    node.row = section;
    node.kind = kind;
    if (!resolveFacts(source, node))
        return false;
    for (JsonNode &item : source.items) {
        const int itemKind = kindOfList(section, item.list);
        if (itemKind < 0 || (kind != sectionItself && parentKind(itemKind) != kind))
            return fail(QStringLiteral("no list \"%1\" is known here").arg(shown(item.list)));
        node.items.emplace_back();
        if (!resolve(item, section, itemKind, node.items.back()))
            return false;
    }
    return true;
}

bool JsonHandler::resolveFacts(JsonNode &source, TreeNode &node)
{
    for (JsonFact &fact : source.facts) {
        TreeFact added;
        added.row = factRowOf(node.row, node.kind, fact.key);
        if (added.row < 0)
            return fail(QStringLiteral("no fact \"%1\" is known here").arg(shown(fact.key)));
        if (!fits(factRows()[size_t(added.row)].type, fact.value))
            return fail(QStringLiteral("the fact \"%1\" has a value of another type").arg(shown(fact.key)));
        added.text = std::move(fact.text);
        added.entries = std::move(fact.entries);
        node.facts.push_back(std::move(added));
    }
    return true;
}

} // namespace Reports
} // namespace velkor
