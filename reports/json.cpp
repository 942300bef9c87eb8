#include "json_writer.h"
#include "text_form.h"

namespace velkor {
namespace Reports {

namespace {

constexpr int maximalGrowth = 3; // how many times longer than the text the JSON may be
constexpr int sizeOfHead = 2048; // what the JSON of a short text may have in addition

/// The text without its mark.
QByteArray withoutMark(const Document &document, bool hasMark)
{
    return hasMark ? document.text().mid(int(sizeof byteOrderMark) - 1) : document.text();
}

/// Marks, moved by the length of the byte-order mark.
std::vector<Mark> movedMarks(std::vector<Mark> marks, int offset)
{
    for (Mark &mark : marks) {
        mark.begin -= offset;
        mark.end -= offset;
    }
    return marks;
}

/// Finds the form and the layout for the trees of \a stored.
void addLayout(StoredText &stored, const Document &document)
{
    const QByteArray text = withoutMark(document, stored.hasMark);
    const std::optional<QByteArray> canonical = canonicalText(stored.trees, maximalText);
    if (!canonical || canonical->isEmpty()) {
        stored.trees.clear();
        stored.layout = {{0, text}};
        return;
    }
    stored.form = findForm(document, *canonical);
    const int offset = document.text().size() - text.size();
    const std::vector<TextPart> parts = textParts(text, movedMarks(document.data().marks, offset), stored.form);
    stored.layout = findEdits(*canonical, stored.form, text, parts);
}

StoredText storedText(const Document &document)
{
    StoredText stored;
    stored.encoding = document.encoding();
    stored.tail = document.data().tail;
    stored.hasMark = document.text().startsWith(byteOrderMark);
    stored.trees = reportTrees(document);
    addLayout(stored, document);
    return stored;
}

bool isTooLong(int json, int text)
{
    return json > qint64(maximalGrowth) * text + sizeOfHead;
}

/// Leaves out the facts of sections whose JSON would be too long: those with a great many short lines.
void leaveOutLongSections(StoredText &stored, const Document &document)
{
    size_t index = 0;
    for (std::vector<TreeNode> &sections : stored.trees) {
        for (TreeNode &node : sections) {
            const Section &section = document.sections()[index++];
            if (!isTooLong(jsonOfSection(document, node).size(), section.end - section.begin))
                continue;
            node.facts.clear();
            node.items.clear();
            node.isLeftOut = true;
        }
    }
    addLayout(stored, document);
}

/// The whole text as an edit.
StoredText wholeText(const QByteArray &bytes)
{
    StoredText stored;
    stored.layout = {{0, bytes}};
    return stored;
}

/// The JSON, if it is short enough without \a notes and gives the bytes again.
std::optional<QByteArray> checkedJson(const Document &document, const StoredText &stored, JsonStyle style, const JsonMembers &notes)
{
    const QByteArray bytes = document.bytes();
    const QByteArray json = jsonDocument(document, stored, style, notes);
    if (isTooLong(json.size() - notes.redaction.size() - notes.incomplete.size(), bytes.size()) || restoredBytes(stored, restoredLimit(json.size())) != bytes)
        return std::nullopt;
    return json;
}

QByteArray jsonWith(const Document &document, const JsonMembers &notes)
{
    StoredText stored = storedText(document);
    for (const JsonStyle style : {JsonStyle::Readable, JsonStyle::Compact}) {
        if (const std::optional<QByteArray> json = checkedJson(document, stored, style, notes))
            return *json;
    }
    leaveOutLongSections(stored, document);
    if (const std::optional<QByteArray> json = checkedJson(document, stored, JsonStyle::Compact, notes))
        return *json;
    return jsonDocument(document, wholeText(document.bytes()), JsonStyle::Readable, notes);
}

} // namespace

QByteArray toJson(const Document &document)
{
    return jsonWith(document, {});
}

QByteArray toJson(const Document &document, const Redaction &redaction)
{
    return toJson(document, JsonNotes {&redaction, {}});
}

QByteArray toJson(const Document &document, const JsonNotes &notes)
{
    return jsonWith(document, {notes.redaction ? redactionJson(*notes.redaction).trimmed() : QByteArray(), notes.incomplete.trimmed()});
}

} // namespace Reports
} // namespace velkor
