#include "plan.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

bool saysSomething(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

/// Appends \a place without blanks at its ends, unless only punctuation is left of it.
void appendTrimmed(Plan &plan, Planned place, std::string_view text)
{
    while (place.begin < place.end && isBlank(text[std::size_t(place.begin)]))
        ++place.begin;
    while (place.begin < place.end && isBlank(text[std::size_t(place.end - 1)]))
        --place.end;
    const std::string_view left = text.substr(std::size_t(place.begin), std::size_t(place.end - place.begin));
    if (std::any_of(left.begin(), left.end(), saysSomething))
        plan.push_back(place);
}

} // namespace

void normalise(Plan &plan)
{
    std::stable_sort(plan.begin(), plan.end(), [](const Planned &left, const Planned &right) {
        return left.begin != right.begin ? left.begin < right.begin : left.end > right.end;
    });
    Plan kept;
    for (const Planned &place : plan) {
        if (place.end <= place.begin)
            continue;
        if (kept.empty() || place.begin >= kept.back().end)
            kept.push_back(place);
        else if (place.end > kept.back().end)
            kept.back().end = place.end; // nothing of it is to remain
    }
    plan.swap(kept);
}

Plan merged(const Plan &high, const Plan &low, std::string_view text)
{
    if (low.empty())
        return high;
    if (high.empty())
        return low;
    Plan all;
    std::size_t next = 0;
    for (Planned place : low) {
        for (; next < high.size() && high[next].end <= place.begin; ++next)
            all.push_back(high[next]);
        while (next < high.size() && high[next].begin < place.end) {
            if (high[next].begin > place.begin) {
                Planned part = place;
                part.end = high[next].begin;
                appendTrimmed(all, part, text);
            }
            place.begin = std::max(place.begin, high[next].end);
            if (high[next].end > place.end)
                break; // it reaches into the next one
            all.push_back(high[next++]);
        }
        if (place.begin < place.end)
            appendTrimmed(all, place, text);
    }
    all.insert(all.end(), high.begin() + std::ptrdiff_t(next), high.end());
    return all;
}

void appendMapped(const Region &region, const Plan &found, Plan &plan)
{
    const std::size_t count = region.pieceCount();
    std::size_t first = 0;
    for (const Planned &place : found) {
        while (first + 1 < count && region.piece(first + 1).at <= place.begin)
            ++first;
        bool isFirst = true;
        for (std::size_t i = first; i < count && region.piece(i).at < place.end; ++i) {
            const Region::Piece &piece = region.piece(i);
            const int offset = piece.begin - piece.at;
            Planned part = place;
            part.begin = std::max(place.begin + offset, piece.begin);
            part.end = std::min(place.end + offset, piece.end);
            part.continues = !isFirst;
            if (part.begin >= part.end)
                continue;
            plan.push_back(part);
            isFirst = false;
        }
    }
}

} // namespace Reports
} // namespace velkor
