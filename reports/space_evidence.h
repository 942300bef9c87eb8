// What the spaces of a text show about its way.
#pragma once

#include "line_form.h"

namespace velkor {
namespace Reports {

/// How often the format's spaces are as they were written, and how often not. A line that differs
/// is taken for one of the format only if lines of that text do differ: a value with a line break
/// can look like a label, but it does not have the label's spaces.
class SpaceEvidence
{
public:
    void count(const LineForm &form, bool emptyValue);
    bool allows(const Alterations &found) const;
    void count(const Alterations &found);
    States states() const;
    bool collapsed() const { return m_collapsed.altered > 0; }
    bool leadingStripped() const { return m_leading.altered > 0; }

private:
    struct Kind
    {
        int exact = 0;
        int altered = 0;
        bool allows() const { return altered > 0 || exact == 0; }
    };
    Kind m_leading;
    Kind m_trailing;
    Kind m_collapsed;
    bool m_noBreak = false;
};

} // namespace Reports
} // namespace velkor
