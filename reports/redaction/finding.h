// A place in a text that identifies something.
#pragma once

#include "vkReports.h"

#include <string_view>
#include <vector>

namespace velkor {
namespace Reports {

struct Finding
{
    int begin = 0;
    int end = 0;
    AliasKind kind = AliasKind::Word;
    Reason reason = Reason::Form;
};

using Findings = std::vector<Finding>;

inline std::string_view textOf(std::string_view text, const Finding &finding)
{
    return text.substr(std::size_t(finding.begin), std::size_t(finding.end - finding.begin));
}

} // namespace Reports
} // namespace velkor
