// Checks JSON against the JSON form while it is parsed, and keeps what it holds.
#pragma once

#include "restored_text.h"

#include <nlohmann/json.hpp>
#include <string>

namespace velkor {
namespace Reports {

/// What a fact in JSON has in the place of its value.
enum class JsonValue {
    Text, ///< the fact is a string
    List, ///< the fact is an array
    Null, ///< the others are objects with a value and a text
    Integer,
    Real,
    String,
};

/// A fact whose section is not known yet: the name of the section can follow.
struct JsonFact
{
    int key = -1; ///< see json_keys.h
    JsonValue value = JsonValue::Text;
    QByteArray text;
    std::vector<QByteArray> entries;
};

/// A section or an item whose section is not known yet.
struct JsonNode
{
    int list = -1;    ///< key of the list that the item is in; -1 for a section
    int section = -1; ///< index in sectionRows()
    std::vector<JsonFact> facts;
    std::vector<JsonNode> items;
};

/// The events of a parser. Stops it at the first thing that the JSON form does not have, so that
/// hostile JSON needs no more memory than what it holds of the form.
class JsonHandler
{
public:
    JsonHandler();

    QString error() const { return m_error; }
    StoredText stored() { return std::move(m_stored); }
    QByteArray sha256() const { return m_sha256; } ///< as bytes; empty if there is none

    // The functions that nlohmann::json::sax_parse() calls. They return false to stop it.
    bool null();
    bool boolean(bool value);
    bool number_integer(qlonglong value);
    bool number_unsigned(qulonglong value);
    bool number_float(double value, const std::string &text);
    bool string(std::string &value);
    bool binary(std::vector<std::uint8_t> &value);
    bool start_object(std::size_t size);
    bool key(std::string &name);
    bool end_object();
    bool start_array(std::size_t size);
    bool end_array();
    bool parse_error(std::size_t position, const std::string &token, const nlohmann::detail::exception &exception);

private:
    enum class Place {
        Outside,
        Root,
        States,
        Blanks,
        Reports,
        Report,
        Sections,
        Section,
        Facts,
        Items,
        Item,
        Value, ///< object of a fact: value and text, or base64
        Entries,
        Base64,
        Layout,
    };
    struct Frame
    {
        Place place = Place::Outside;
        int key = -1;          ///< of the member that follows or is being read
        int index = 0;         ///< of the element that follows or is being read, in an array
        std::vector<int> seen; ///< keys, in an object
    };

    static bool isArray(Place place);
    bool fail(const QString &message);
    bool unexpected();
    bool isIgnored() const;
    bool ignoredValueEnds();
    bool openIgnored();
    bool closeIgnored();
    QString path() const;
    bool isAt(Place place, const char *key) const;
    bool isFact() const;
    bool open(Place place);
    bool close();
    bool valueEnds();
    bool hasSeen(const Frame &frame, const char *key) const;

    bool integer(qint64 value);
    bool rootString(const std::string &value);
    bool text(const QByteArray &bytes);
    bool stateName(const std::string &name);
    bool blankName(const std::string &name);
    bool openFact(Place place, JsonValue value);
    bool closeFact();
    bool closeBase64();
    bool closeSection();
    bool closeRoot();
    bool resolve(JsonNode &source, int section, int kind, TreeNode &node);
    bool resolveFacts(JsonNode &source, TreeNode &node);

    StoredText m_stored;
    QByteArray m_sha256;
    QByteArray m_base64;
    JsonNode m_section;
    std::vector<JsonNode *> m_nodes; // the section and the items that are being read
    std::vector<Frame> m_frames;
    int m_ignoredDepth = 0; // of the objects and arrays that are being read in a member whose value is ignored
    QString m_error;
};

} // namespace Reports
} // namespace velkor
