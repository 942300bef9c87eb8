// Texts of strangers, made harmless for the form in which they are shown.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace Reports {

/// For a terminal: control characters (C0 but line feed, DEL, C1), line and paragraph separators,
/// characters that change the direction of text or have no width, and unpaired surrogates become
/// visible: "\x1b" for escape, "\u202e".
QString terminalText(const QString &text);

/// For the content and the attributes of HTML: & < > " ' become references, and control characters
/// and characters that change the direction become visible as for a terminal. Line feeds stay.
QString htmlText(const QString &text);

/// A code span of Markdown that shows \a text on one line: no mention, link, image or HTML in it
/// has an effect. Line breaks become visible, and so do "|", which would end a cell of a table even in
/// a code span, and all backticks if there are more than eight in a row. Never empty.
QString markdownCode(const QString &text);

/// A code block with a fence that \a text does not contain. Ends with a line feed.
QString markdownBlock(const QString &text);

/// \a text with an apostrophe before it if a spreadsheet would take it for a formula. Numbers stay
/// as they are. For the cells of tables, before one of the functions above.
QString tableText(const QString &text);

} // namespace Reports
} // namespace velkor
