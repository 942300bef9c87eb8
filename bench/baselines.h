// A baseline makes the Windows calls and the Qt queries of the library, in the same order
// and with the same arguments, and builds no text.
#pragma once

#include "recordings.h"
#include "times.h"

namespace bench {

/// Its calls are those that \a recordings has for the sections of \a subject.
Side makeBaseline(const Subject &subject, const Recordings &recordings);

} // namespace bench
