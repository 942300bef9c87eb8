// A recording as a program that makes the same calls again and does nothing else.
#pragma once

#include "recording.h"

namespace bench {

struct CallPlayer; // handles and buffers
struct Step;

/// Calls of the sections with the arguments that they gave, spelled out before so
/// that play() converts nothing. Buffers have the sections' sizes; they are neither
/// cleared nor read. Every key, library and piece of memory is given back where the
/// sections give it back.
class CallList
{
public:
    explicit CallList(const std::vector<Call> &calls);
    ~CallList();
    CallList(CallList &&other) noexcept;

    void play() const;
    std::size_t size() const;

private:
    std::vector<Step> m_steps;
    std::size_t m_slots = 0;
};

} // namespace bench
