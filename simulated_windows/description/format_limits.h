// What the format can say of two calls only in the report's own terms: it numbers five
// variables, and it has a name for one folder. In memory both are general.
#pragma once

#include "machine.h"

namespace machine {

/// The variables whose expansion can fail, in the order of their numbers in
/// "ExpandEnvironmentStrings".
inline constexpr const char *numberedVariables[] = {"OS", "PATH", "HOMEPATH", "TEMP", "PROCESSOR_IDENTIFIER"};

/// Where the folder "WinSxS" is; nowhere without a Windows directory.
inline std::optional<QString> winSxSPath(const SystemAnswers &system)
{
    const Answer<QString> &directory = system.GetSystemWindowsDirectory;
    return directory ? std::make_optional(*directory + QStringLiteral("\\WinSxS")) : std::nullopt;
}

} // namespace machine
