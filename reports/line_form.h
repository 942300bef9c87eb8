// The catalogue's lines, compiled for matching.
#pragma once

#include "catalogue.h"

#include <string_view>

namespace velkor {
namespace Reports {

/// Bytes in the text; begin is -1 for a value that the line does not have.
struct Span
{
    int begin = -1;
    int end = -1;
};

constexpr int maximalValues = 6; ///< of one line

/// What a line lost on its way, compared with the format.
struct Alterations
{
    bool leading = false;   ///< spaces at the beginning are missing
    bool trailing = false;  ///< spaces at the end are missing
    bool collapsed = false; ///< a run of spaces is shorter
    bool noBreak = false;   ///< no-break spaces or tabs in the place of spaces

    bool any() const;
};

/// A line of the format: literals with values between them.
class LineForm
{
public:
    /// \a firstRow is the first of the \a rowCount rows of the catalogue that share the line.
    LineForm(int firstRow, int rowCount);

    const FactRow &row(int value = 0) const;
    int firstRow() const { return m_firstRow; }
    int valueCount() const { return m_valueCount; }
    int item() const { return m_item; } ///< index in itemRows(), or -1
    bool has(FactForm flag) const { return (m_form & flag) != 0; }
    /// The text after the last value.
    std::string_view suffix() const { return m_literals.back(); }
    /// The number of characters other than spaces in the literals: how much they prove.
    int weight() const { return m_weight; }
    bool hasRuns() const { return m_runs; }         ///< several spaces in a row
    bool hasLeading() const { return m_leading; }   ///< begins with spaces
    bool hasTrailing() const { return m_trailing; } ///< ends with a space if the value is empty

    /// Matches the bytes from \a begin to \a end of \a text. Sets valueCount() spans.
    bool match(const char *text, int begin, int end, Span *spans) const;
    /// As match(), but spaces may be missing, or be no-break spaces or tabs.
    bool matchAltered(const char *text, int begin, int end, Span *spans, Alterations *alterations) const;
    /// As match(), but the text after the last value is missing: the value goes on in the next line.
    bool matchBeginning(const char *text, int begin, int end, Span *spans) const;

private:
    bool matchFrom(const char *text, int at, int end, Span *spans, bool whole) const;
    bool matchAlteredOnly(const char *text, int begin, int end, Span *spans, Alterations *alterations) const;
    bool matchOnly(const char *text, int begin, int end, Span *spans) const;

    int m_firstRow;
    int m_valueCount;
    int m_item = -1;
    unsigned m_form;
    int m_weight = 0;
    bool m_runs = false;
    bool m_leading = false;
    bool m_trailing = false;
    bool m_drive = false;
    std::string_view m_only;                  ///< of the last value
    std::vector<std::string_view> m_literals; ///< valueCount() + 1
};

/// The lines of a section.
struct SectionForm
{
    std::vector<LineForm> lines;
};

/// By index in sectionRows().
const SectionForm &sectionForm(int section);

/// The length of the space at \a at: a space, a tab or a no-break space; 0 if there is none.
int blankLength(const char *text, int at, int end);

} // namespace Reports
} // namespace velkor
