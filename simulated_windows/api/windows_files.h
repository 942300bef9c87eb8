// Makes Qt's file classes list the folders of the described machine.
#pragma once

namespace simulated {

/// Installs the file engine. Further calls do nothing.
void answerWindowsFiles();

} // namespace simulated
