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

/// The JSON of \a stored, which belongs to \a document. \a redaction is the value of that member; it is
/// missing if there is none.
QByteArray jsonDocument(const Document &document, const StoredText &stored, JsonStyle style, const QByteArray &redaction);

/// The JSON of a section of \a document, in compact style.
QByteArray jsonOfSection(const Document &document, const TreeNode &section);

} // namespace Reports
} // namespace velkor
