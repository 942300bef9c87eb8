// Sets of bytes, for loops over every byte of a text.
#pragma once

#include <array>
#include <string_view>

namespace velkor {
namespace Reports {

class ByteSet
{
public:
    constexpr explicit ByteSet(std::string_view bytes)
        : members()
    {
        for (const char byte : bytes)
            members[static_cast<unsigned char>(byte)] = true;
    }

    /// With control characters.
    constexpr ByteSet withControls() const
    {
        ByteSet all = *this;
        for (std::size_t byte = 0; byte < ' '; ++byte)
            all.members[byte] = true;
        return all;
    }

    constexpr bool has(char byte) const { return members[static_cast<unsigned char>(byte)]; }

private:
    std::array<bool, 256> members;
};

} // namespace Reports
} // namespace velkor
