// Answers Qt's file classes for the folders of the described machine.
#pragma once

namespace simulated {

/// From now on; does nothing when called again.
void answerWindowsFiles();

} // namespace simulated
