// What a child process needs from the system. One file for each platform.
#pragma once

#include "failure.h"

#include <QtCore/QProcess>
#include <QtCore/QString>

/// A process that ends with its parent.
class ChildProcess : public QProcess
{
public:
    explicit ChildProcess(bool hasLowPriority);
    ~ChildProcess() override;
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    /// Starts \a program. Must be called on the main thread: on Linux the child ends with the thread.
    bool startWithParent(const QString &program, const QStringList &arguments);

protected:
#ifdef Q_OS_UNIX
    void setupChildProcess() override;
#endif

private:
    bool m_hasLowPriority;
    quintptr m_bond = 0; ///< ends the child with its parent. Linux: process id of the parent. Windows: job object
};

/// The name of what ended a process that crashed: a signal, or an exception.
QString crashName(int exitCode);

/// Whether QApplication can be expected to find a display.
bool hasDisplay();

/// Whether a child that created its QApplication ended like this because Qt found no display.
bool isEndWithoutDisplay(const Failure &failure);

/// Away from Windows a described machine answers the Windows calls. Tells the user if there is none.
void sayIfNoMachine();

/// Writing progress and messages that nobody reads fails and does not end this process. QProcess does the same on Linux,
/// but not before it starts a child.
void surviveBrokenPipes();

/// Children that cannot be ended do not keep the standard output and error of this process open.
void keepOutputFromChildren();
