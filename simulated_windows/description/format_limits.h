// Two limits of the format: it has failures of ExpandEnvironmentStrings only for five numbered
// variables, and it describes only the folder "WinSxS". machine::SystemAnswers has neither limit.
#pragma once

#include "machine.h"

namespace machine {

/// The variables whose expansion can fail. Their indexes are the numbers in
/// "ExpandEnvironmentStrings".
inline constexpr const char *numberedVariables[] = {"OS", "PATH", "HOMEPATH", "TEMP", "PROCESSOR_IDENTIFIER"};

/// The path of the folder "WinSxS"; nothing without a Windows directory.
inline std::optional<QString> winSxSPath(const SystemAnswers &system)
{
    const Answer<QString> &directory = system.GetSystemWindowsDirectory;
    return directory ? std::make_optional(*directory + QStringLiteral("\\WinSxS")) : std::nullopt;
}

} // namespace machine
