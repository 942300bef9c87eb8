// Writes parts of the JSON form.
#pragma once

#include "restored_text.h"

namespace velkor {
namespace Reports {

enum class JsonStyle {
    Readable, ///< a fact or an item a line
    Compact,
};

/// A string, or an object with base64 if \a bytes are no UTF-8 or have control characters other than
/// tab, line feed and carriage return.
QByteArray jsonText(const QByteArray &bytes);

/// The values of members that do not come from the document, as JSON. A member without a value is missing.
struct JsonMembers
{
    QByteArray redaction;
    QByteArray incomplete;
};

/// The JSON of \a stored, which belongs to \a document.
QByteArray jsonDocument(const Document &document, const StoredText &stored, JsonStyle style, const JsonMembers &notes);

/// The JSON of a section of \a document, in compact style.
QByteArray jsonOfSection(const Document &document, const TreeNode &section);

} // namespace Reports
} // namespace velkor
