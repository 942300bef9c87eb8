#include "json_writer.h"
#include "text_form.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr int sizeOfHead = 2048; ///< what the JSON of a short text may have in addition

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

StoredText storedText(const Document &document)
{
    StoredText stored;
    stored.encoding = document.encoding();
    stored.tail = document.data().tail;
    stored.hasMark = document.text().startsWith(byteOrderMark);
    stored.trees = reportTrees(document);
    const QByteArray text = withoutMark(document, stored.hasMark);
    const std::optional<QByteArray> canonical = canonicalText(stored.trees, maximalText);
    if (!canonical || canonical->isEmpty()) {
        stored.trees.clear();
        stored.layout = {{0, text}};
        return stored;
    }
    stored.form = findForm(document, *canonical);
    const int offset = document.text().size() - text.size();
    const std::vector<TextPart> parts = textParts(text, movedMarks(document.data().marks, offset), stored.form);
    stored.layout = findEdits(*canonical, stored.form, text, parts);
    return stored;
}

/// The whole text as an edit.
StoredText wholeText(const QByteArray &bytes)
{
    StoredText stored;
    stored.layout = {{0, bytes}};
    return stored;
}

} // namespace

QByteArray toJson(const Document &document)
{
    const QByteArray bytes = document.bytes();
    StoredText stored = storedText(document);
    if (restoredBytes(stored, std::max(bytes.size(), maximalText)) != bytes)
        stored = wholeText(bytes);
    const QByteArray json = jsonDocument(document, stored, JsonStyle::Readable);
    if (json.size() / 3 <= bytes.size() + sizeOfHead)
        return json;
    return jsonDocument(document, stored, JsonStyle::Compact);
}

} // namespace Reports
} // namespace velkor
