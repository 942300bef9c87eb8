#include "strong_lines.h"

#include "section_order.h"

namespace velkor {
namespace Reports {

const std::vector<StrongLine> &strongLines(char first)
{
    static const std::vector<std::vector<StrongLine>> lines = [] {
        std::vector<std::vector<StrongLine>> result(256);
        for (int section = 0; section <= lastSection(); ++section) {
            for (const LineForm &form : sectionForm(section).lines) {
                if (form.weight() >= strongWeight)
                    result[uchar(form.row().line[0])].push_back({section, &form});
            }
        }
        return result;
    }();
    return lines[uchar(first)];
}

bool isOneLine(Type type)
{
    return type == Type::Number || type == Type::Number64 || type == Type::Real || type == Type::Bytes;
}

} // namespace Reports
} // namespace velkor
