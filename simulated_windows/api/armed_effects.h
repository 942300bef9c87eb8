// The effects that calls may have: faults, or trouble.
#pragma once

#include "simulated_windows.h"

#include <algorithm>

namespace simulated {

template <typename Effect>
class ArmedEffects
{
public:
    /// Every call that matches, or the one with that number, counted from 0 from now on. Returns an
    /// id that is not 0 and that no other effect ever has.
    int add(const CallPattern &calls, std::optional<std::size_t> number, const Effect &effect)
    {
        m_effects.push_back({++s_lastId, calls, number, effect});
        return s_lastId;
    }

    void remove(int id)
    {
        const auto hasId = [&](const Armed &armed) { return armed.id == id; };
        m_effects.erase(std::remove_if(m_effects.begin(), m_effects.end(), hasId), m_effects.end());
    }

    /// Counts the call for each effect and returns the first that applies to it.
    std::optional<Effect> apply(const Call &call)
    {
        std::optional<Effect> result;
        for (Armed &armed : m_effects) {
            if (!matches(armed.calls, call))
                continue;
            const std::size_t number = armed.seen++;
            if (result || (armed.number && *armed.number != number))
                continue;
            ++armed.hits;
            result = armed.effect;
        }
        return result;
    }

    /// The number of calls that the effect applied to; 0 if it was removed.
    std::size_t hits(int id) const
    {
        for (const Armed &armed : m_effects) {
            if (armed.id == id)
                return armed.hits;
        }
        return 0;
    }

private:
    struct Armed
    {
        int id;
        CallPattern calls;
        std::optional<std::size_t> number;
        Effect effect;
        std::size_t seen = 0;
        std::size_t hits = 0;
    };

    static bool matches(const CallPattern &pattern, const Call &call)
    {
        return (!pattern.name || *pattern.name == call.name) && (!pattern.key || *pattern.key == call.key)
            && (!pattern.value || *pattern.value == call.value);
    }

    std::vector<Armed> m_effects;
    inline static int s_lastId = 0;
};

} // namespace simulated
