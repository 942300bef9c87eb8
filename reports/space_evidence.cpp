#include "space_evidence.h"

namespace velkor {
namespace Reports {

void SpaceEvidence::count(const LineForm &form, bool emptyValue)
{
    m_leading.exact += form.hasLeading() ? 1 : 0;
    m_collapsed.exact += form.hasRuns() ? 1 : 0;
    m_trailing.exact += emptyValue && form.hasTrailing() ? 1 : 0;
}

bool SpaceEvidence::allows(const Alterations &found) const
{
    return found.noBreak || ((!found.leading || m_leading.allows()) && (!found.trailing || m_trailing.allows()) && (!found.collapsed || m_collapsed.allows()));
}

void SpaceEvidence::count(const Alterations &found)
{
    m_leading.altered += found.leading ? 1 : 0;
    m_trailing.altered += found.trailing ? 1 : 0;
    m_collapsed.altered += found.collapsed ? 1 : 0;
    m_noBreak |= found.noBreak;
}

States SpaceEvidence::states() const
{
    States states;
    states.setFlag(State::LeadingBlanksStripped, m_leading.altered > 0);
    states.setFlag(State::TrailingBlanksStripped, m_trailing.altered > 0);
    states.setFlag(State::BlanksCollapsed, m_collapsed.altered > 0);
    states.setFlag(State::NoBreakSpaces, m_noBreak);
    return states;
}

} // namespace Reports
} // namespace velkor
