// Reads the file that VKSYSTEMINFO_TROUBLE names.
//
// A line has fields that are separated by tabs:
//
//     KIND<TAB>CALL[<TAB>KEY[<TAB>VALUE]]
//
// KIND is sleep=MILLISECONDS, hang, crash, abort or exit=CODE. CALL is the name of a Windows call;
// KEY and VALUE are, exactly, those that the journal records for the call. A field that is missing
// or is * matches anything. Lines that start with # and empty lines are ignored. The first line
// that matches a call applies.
#pragma once

#include "simulated_windows.h"

namespace simulated {

struct TroubleLine
{
    CallPattern calls;
    TroubleKind kind;
};

/// The lines of \a text, which is UTF-8. Appends the number of each line that cannot be read, from
/// 1, and the reason to \a problems.
std::vector<TroubleLine> readTroubleLines(const QByteArray &text, QStringList &problems);

/// The lines of the file that VKSYSTEMINFO_TROUBLE names. There are none if there is no such file.
/// A warning says what cannot be read.
std::vector<TroubleLine> troubleLinesOfEnvironment();

} // namespace simulated
