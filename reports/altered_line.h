// A line whose spaces may have changed on the way.
#pragma once

#include "line_form.h"

#include <string>

namespace velkor {
namespace Reports {

class AlteredLine
{
public:
    /// \a wrapped: there are line ends in the line, and \a prefix is the quote that may follow them.
    AlteredLine(const char *text, int begin, int end, bool wrapped = false, std::string_view prefix = {});

    /// Matches the line, also if spaces are missing or others. The spans are offsets in the text.
    bool match(const LineForm &form, Span *spans, Alterations *alterations) const;

private:
    const char *m_text;
    int m_begin;
    int m_end;
    bool m_noBreak = false;
    std::string m_plain;        ///< the line with spaces for no-break spaces, tabs and line ends; empty if it has none
    std::vector<int> m_offsets; ///< of the bytes of m_plain, and of its end, in the text
};

} // namespace Reports
} // namespace velkor
