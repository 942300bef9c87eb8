// Lines that consist of one character, and names of kinds.
#pragma once

#include <cstring>
#include <string_view>

namespace velkor {
namespace Reports {

constexpr int hyphensOfClass = 28;         ///< the line before a device class
constexpr int underscoresOfInterface = 55; ///< the line before an interface

inline bool isRun(std::string_view line, char character, int length)
{
    return int(line.size()) == length && line.find_first_not_of(character) == std::string_view::npos;
}

inline bool isKind(const char *name, const char *kind)
{
    return std::strcmp(name, kind) == 0;
}

} // namespace Reports
} // namespace velkor
