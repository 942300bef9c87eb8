// The lines of a value in the text of a document.
#pragma once

#include "document_data.h"

namespace velkor {
namespace Reports {

struct ValueLine
{
    int begin = 0;
    int end = 0;
};

/// The lines from \a begin to \a end, without line ends and mail quotes.
std::vector<ValueLine> valueLines(const DocumentData &data, int begin, int end);

} // namespace Reports
} // namespace velkor
