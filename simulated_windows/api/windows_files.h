// Answers Qt's file classes for the WinSxS folder of the described machine.
#pragma once

#include <QtCore/QStringList>

namespace simulated {

/// From now on; does nothing when called again.
void answerWindowsFiles();

/// For as long as it lives the WinSxS folder holds these files besides the directories
/// that the description names.
class WinSxSFiles
{
public:
    explicit WinSxSFiles(const QStringList &names) { s_names = names; }
    ~WinSxSFiles() { s_names.clear(); }
    WinSxSFiles(const WinSxSFiles &) = delete;
    WinSxSFiles &operator=(const WinSxSFiles &) = delete;

    static const QStringList &names() { return s_names; }

private:
    inline static QStringList s_names;
};

} // namespace simulated
