// A text that was made, possibly not all of it.
#pragma once

#include "incompleteness.h"

#include <optional>

struct MadeText
{
    std::optional<QByteArray> text; ///< UTF-8; nothing if nothing could be made
    QString timings;                ///< of Options::timings
    Incompleteness incompleteness;
};
