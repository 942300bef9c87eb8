// Makes docs/report.schema.json from the catalogue, and checks what the JSON form expects of the
// catalogue.

#include "json_names.h"
#include "test_main.h"
#include "text_form.h"
#include "texts.h"
#include "vkReports.h"

#include <QtCore/QFile>
#include <QtCore/QSet>
#include <nlohmann/json.hpp>

using namespace velkor::Reports;
using Object = nlohmann::ordered_json;

class JsonSchemaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keyHasOneType();
    void listsAndFactsHaveDifferentKeys();
    void schemaIsUpToDate();
};

namespace {

namespace Key = velkor::Reports::Json::Key;

QString text(const char *name)
{
    return QString::fromLatin1(name);
}

bool same(const char *one, const char *other)
{
    return qstrcmp(one, other) == 0;
}

Object reference(const std::string &definition)
{
    return {{"$ref", "#/$defs/" + definition}};
}

Object described(const char *description, Object schema)
{
    Object result = {{"description", description}};
    result.update(schema);
    return result;
}

Object strings(const std::vector<std::string> &values)
{
    return {{"enum", values}};
}

const char *typeName(Type type)
{
    switch (type) {
    case Type::Text:
        return "text";
    case Type::Number:
        return "number";
    case Type::Number64:
        return "number64";
    case Type::Real:
        return "real";
    case Type::Bytes:
        return "bytes";
    case Type::Version:
        return "version";
    case Type::Date:
        return "date";
    case Type::List:
        return "list";
    }
    return "";
}

/// An object with a value that a text shows.
Object valueWithText(const char *description, const Object &value)
{
    return {{"description", description},
            {"type", "object"},
            {"required", {Key::value, Key::text}},
            {"additionalProperties", false},
            {"properties", {{Key::value, value}, {Key::text, reference("text")}}}};
}

Object pattern(const char *expression)
{
    return {{"type", {"string", "null"}}, {"pattern", expression}};
}

Object typeDefinitions()
{
    constexpr char date[] = "^-?[0-9]{4,}-[0-9]{2}-[0-9]{2}(T[0-9]{2}:[0-9]{2}:[0-9]{2})?$";
    Object base64 = {{"description", "Bytes that are no UTF-8, or that have control characters other than tab, line feed "
                                     "and carriage return."},
                     {"type", "object"},
                     {"required", {Key::base64}},
                     {"additionalProperties", false},
                     {"properties",
                      {{Key::base64,
                        {{"type", "string"}, {"contentEncoding", "base64"}, {"pattern", "^[A-Za-z0-9+/]*={0,2}$"}}}}}};
    const Object anyText = {{"anyOf", {{{"type", "string"}}, reference(Key::base64)}}};
    return {
        {"base64", base64},
        {"text", described("A text, as it stands in the report.", anyText)},
        {"version", described("A version, as it stands in the report.", anyText)},
        {"list", {{"description", "Texts."}, {"type", "array"}, {"items", reference("text")}}},
        {"number",
         valueWithText("An integer of up to 32 bits; null if the text shows none.",
                       {{"type", {"integer", "null"}}, {"minimum", -2147483648LL}, {"maximum", 4294967295LL}})},
        {"number64", valueWithText("An integer of up to 64 bits in decimal digits.", pattern("^-?[0-9]{1,20}$"))},
        {"bytes", valueWithText("A count of bytes in decimal digits. Of \"70.6 GByte\", the smallest one that is written so.", pattern("^[0-9]{1,20}$"))},
        {"real", valueWithText("A floating-point number.", {{"type", {"number", "null"}}})},
        {"date", valueWithText("A date, or a date and a time without a time zone, in ISO 8601.", pattern(date))},
    };
}

Object factProperties(const char *section, const char *item)
{
    Object properties = Object::object();
    for (const FactRow &row : factRows()) {
        if (!same(row.section, section) || !same(row.item, item) || *row.key == '\0' || properties.contains(row.key))
            continue;
        Object fact = reference(typeName(row.type));
        fact["description"] = *row.only ? std::string("Always: ") + row.only : std::string("Line: ") + row.line;
        if (*row.unit)
            fact["unit"] = row.unit;
        properties[row.key] = fact;
    }
    return properties;
}

std::string itemDefinition(const ItemRow &row)
{
    return std::string(row.section) + '.' + row.kind;
}

Object itemsOf(const ItemRow &row)
{
    return {{"type", "array"}, {"minItems", 1}, {"items", reference(itemDefinition(row))}};
}

Object itemSchema(const ItemRow &item)
{
    Object properties = factProperties(item.section, item.kind);
    for (const ItemRow &row : itemRows()) {
        if (same(row.section, item.section) && same(row.parent, item.kind))
            properties[row.list] = itemsOf(row);
    }
    return {{"type", "object"}, {"minProperties", 1}, {"additionalProperties", false}, {"properties", properties}};
}

Object sectionSchema(const char *facts)
{
    std::vector<std::string> names;
    for (const SectionRow &row : sectionRows()) {
        if (same(row.facts, facts))
            names.emplace_back(row.name);
    }
    Object properties = {{Key::name, strings(names)}};
    properties[Key::facts] = {{"description", "The facts that belong to no item."},
                              {"type", "object"},
                              {"additionalProperties", false},
                              {"properties", factProperties(facts, "")}};
    for (const ItemRow &row : itemRows()) {
        if (same(row.section, facts))
            properties[row.list] = itemsOf(row);
    }
    return {{"type", "object"}, {"required", {Key::name, Key::facts}}, {"additionalProperties", false}, {"properties", properties}};
}

/// A section whose JSON would be too long.
Object leftOutSchema()
{
    std::vector<std::string> names;
    for (const SectionRow &row : sectionRows())
        names.emplace_back(row.name);
    return {{"description", "A section with so many short lines that its facts would make the JSON more than three times "
                            "as long as the text. Only \"layout\" has them."},
            {"type", "object"},
            {"required", {Key::name, Key::leftOut}},
            {"additionalProperties", false},
            {"properties", {{Key::name, strings(names)}, {Key::leftOut, {{"const", true}}}}}};
}

Object definitions(Object &sections)
{
    Object result = typeDefinitions();
    sections = Object::array();
    QSet<QString> done;
    for (const SectionRow &row : sectionRows()) {
        if (done.contains(text(row.facts)))
            continue;
        done.insert(text(row.facts));
        result[row.facts] = sectionSchema(row.facts);
        sections.push_back(reference(row.facts));
    }
    for (const ItemRow &row : itemRows())
        result[itemDefinition(row)] = itemSchema(row);
    result[Key::leftOut] = leftOutSchema();
    sections.push_back(reference(Key::leftOut));
    return result;
}

/// What toJson() with a redaction writes.
Object redactionSchema()
{
    std::vector<std::string> kinds;
    for (int kind = 0; kind <= int(AliasKind::Word); ++kind)
        kinds.push_back(aliasKindName(AliasKind(kind)).toStdString());
    const Object count = {{"type", "integer"}, {"minimum", 0}};
    const Object reasons = {{"type", "array"},
                            {"uniqueItems", true},
                            {"items", strings({"fact", "sameElsewhere", "folder", "form", "environment", "hidden"})}};
    const Object alias = {{"type", "object"},
                          {"required", {"alias", "kind", "count", "reasons"}},
                          {"additionalProperties", false},
                          {"properties",
                           {{"alias", described("What stands in the text.", {{"type", "string"}})},
                            {"kind", strings(kinds)},
                            {"count", described("How many places have it.", count)},
                            {"reasons", described("Why it was replaced.", reasons)}}}};
    return {{"description", "What the redaction of the text replaced. It is ignored when the JSON is read."},
            {"type", "object"},
            {"required", {"anonymous", "environmentValues", "aliases"}},
            {"additionalProperties", false},
            {"properties",
             {{"anonymous", described("What was not replaced can identify the machine.", {{"const", false}})},
              {"environmentValues", described("How many values of variables became their length.", count)},
              {"aliases", described("In the order in which they occur.", {{"type", "array"}, {"items", alias}})}}}};
}

/// What vkreport writes if it could not make the whole report.
Object incompleteSchema()
{
    const auto failures = [](const char *key, const char *description) {
        const Object failure = {{"type", "object"},
                                {"required", {key, "reason"}},
                                {"additionalProperties", false},
                                {"properties",
                                 {{key, {{"type", "string"}}},
                                  {"reason", strings({"timeout", "crash", "exit", "notStarted", "notTried"})},
                                  {"code", described("Signal or exception of a crash; exit code.", {{"type", "string"}})},
                                  {"seconds", described("How long it was waited for.", {{"type", "number"}, {"minimum", 0}})}}}};
        return described(description, {{"type", "array"}, {"items", failure}});
    };
    return {{"description", "What vkreport could not make, and why. It is ignored when the JSON is read."},
            {"type", "object"},
            {"required", {"timeLimit", "attempts", "missing"}},
            {"additionalProperties", false},
            {"properties",
             {{"timeLimit", described("Seconds; 0 for none.", {{"type", "number"}, {"minimum", 0}})},
              {"attempts", failures("attempt", "Ways to make the whole report that failed.")},
              {"missing", failures("section", "Sections that are missing in the text.")}}}};
}

Object rootProperties(const Object &sections)
{
    std::vector<std::string> states;
    for (const QString &name : stateNames(States(QFlag(-1))))
        states.push_back(name.toStdString());
    std::vector<std::string> lineEnds;
    for (const QByteArray &lineEnd : knownLineEnds())
        lineEnds.push_back(lineEnd.toStdString());
    namespace Blanks = velkor::Reports::Json::Blanks;
    const Object report = {{"type", "object"},
                           {"required", {Key::sections}},
                           {"additionalProperties", false},
                           {"properties", {{Key::sections, {{"type", "array"}, {"items", {{"oneOf", sections}}}}}}}};
    Object properties;
    properties[Key::format] = {{"const", Json::formatName}};
    properties[Key::schemaVersion] = described("Grows when a key changes its meaning.", {{"const", schemaVersion}});
    properties[Key::sha256] = described("SHA-256 of the text. If it is there, the text that is read must have it.",
                                        {{"type", "string"}, {"pattern", "^[0-9a-f]{64}$"}});
    properties[Key::redaction] = redactionSchema();
    properties[Key::incomplete] = incompleteSchema();
    properties[Key::states] = described("What the text went through.",
                                        {{"type", "array"}, {"uniqueItems", true}, {"items", strings(states)}});
    properties[Key::encoding] = strings({"UTF-8", "UTF-16LE", "UTF-16BE"});
    properties[Key::byteOrderMark] = {{"type", "boolean"}};
    properties[Key::tail] = described("The last byte of UTF-16 with an odd number of bytes.", reference("text"));
    properties[Key::lineEnd] = described("What ends the lines.", strings(lineEnds));
    properties[Key::linePrefix] = described("What the lines of the report begin with.",
                                            {{"anyOf", {{{"type", "string"}, {"maxLength", maximalPrefix}}, reference(Key::base64)}}});
    properties[Key::blanks] = described(
        "What happened to the spaces of the lines.",
        {{"type", "array"},
         {"uniqueItems", true},
         {"items",
          strings({Blanks::collapsed, Blanks::leadingStripped, Blanks::trailingStripped, Blanks::noBreak, Blanks::noBreakRuns})}});
    properties[Key::reports] = {{"type", "array"}, {"items", report}};
    properties[Key::layout] = described(
        "How the text differs from the lines that the format has for the reports. A positive number: so many lines are "
        "the same. A negative number: so many lines are missing. A text: it stands here in addition. All further lines "
        "are the same.",
        {{"type", "array"},
         {"items", {{"anyOf", {{{"type", "integer"}, {"not", {{"const", 0}}}}, {{"type", "string"}}, reference(Key::base64)}}}}});
    return properties;
}

QByteArray schema()
{
    Object sections;
    const Object defs = definitions(sections);
    const Object root = {
        {"$schema", "https://json-schema.org/draft/2020-12/schema"},
        {"title", "vkSystemInfo report as JSON"},
        {"description", "Keys are those of the catalogue of facts. The annotation \"unit\" is the unit of a fact's value."},
        {"type", "object"},
        {"required",
         {Key::format, Key::schemaVersion, Key::encoding, Key::byteOrderMark, Key::lineEnd, Key::linePrefix, Key::blanks,
          Key::reports, Key::layout}},
        {"additionalProperties", false},
        {"properties", rootProperties(sections)},
        {"$defs", defs},
    };
    return QByteArray::fromStdString(root.dump(1)) + '\n';
}

} // namespace

void JsonSchemaTest::keyHasOneType()
{
    for (const FactRow &row : factRows()) {
        for (const FactRow &other : factRows()) {
            if (same(row.section, other.section) && same(row.item, other.item) && same(row.key, other.key) && *row.key)
                QVERIFY2(row.type == other.type && same(row.unit, other.unit), row.key);
        }
    }
}

// Facts and lists of items are members of the same object. Which of them a key is must be known before
// the section is.
void JsonSchemaTest::listsAndFactsHaveDifferentKeys()
{
    QSet<QString> facts;
    for (const FactRow &row : factRows())
        facts += text(row.key);
    for (const ItemRow &row : itemRows()) {
        QVERIFY2(!facts.contains(text(row.list)), row.list);
        QVERIFY2(!same(row.list, Key::name) && !same(row.list, Key::facts) && !same(row.list, Key::leftOut), row.list);
        for (const ItemRow &other : itemRows())
            QVERIFY2(&row == &other || !same(row.section, other.section) || !same(row.list, other.list), row.list);
    }
}

// If the environment variable UPDATE_DOCUMENTS is set, the test writes docs/report.schema.json and does
// not compare it.
void JsonSchemaTest::schemaIsUpToDate()
{
    QFile document(QStringLiteral(PROJECT_DIR "/docs/report.schema.json"));
    const QByteArray expected = schema();
    if (qEnvironmentVariableIsSet("UPDATE_DOCUMENTS")) {
        QVERIFY(document.open(QIODevice::WriteOnly));
        QCOMPARE(document.write(expected), qint64(expected.size()));
        return;
    }
    QVERIFY(document.open(QIODevice::ReadOnly));
    COMPARE_TEXT(QString::fromUtf8(document.readAll()), QString::fromUtf8(expected));
}

TEST_WITHOUT_APPLICATION(JsonSchemaTest);
#include "tst_json_schema.moc"
