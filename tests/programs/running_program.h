// Starts a program with full control over its streams, signals and environment, and finds its processes.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayList>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <chrono>
#include <sys/types.h>

enum class Stream {
    Pipe,          ///< the test reads it
    Closed,        ///< the file descriptor does not exist
    FullDevice,    ///< every write fails
    WithoutReader, ///< a pipe whose read end is closed
    Terminal,      ///< the test reads it
};

struct ProgramStart
{
    QString program;
    QStringList arguments;
    QByteArrayList environment; ///< NAME=VALUE
    /// Contents of the file "trouble" in the working directory, which is a new folder. Null: no file.
    QByteArray trouble;
    bool inputClosed = false;
    Stream output = Stream::Pipe;
    Stream errors = Stream::Pipe;
    QList<int> ignoredSignals;
};

struct ProgramEnd
{
    bool ended = false; ///< false: still running when the time was over; it was killed
    int exitCode = -1;  ///< -1 if a signal ended it
    int signal = 0;
    double seconds = 0;
    QByteArray output;
    QByteArray errors;
    QStringList files;      ///< in the working directory, without "trouble"
    QList<pid_t> processes; ///< that are left
};

/// A program that starts in the constructor and is killed, with its processes, in the destructor.
class RunningProgram
{
public:
    explicit RunningProgram(const ProgramStart &start);
    ~RunningProgram();
    RunningProgram(const RunningProgram &) = delete;
    RunningProgram &operator=(const RunningProgram &) = delete;

    pid_t pid() const { return m_pid; }
    QString folder() const { return m_folder.path(); }
    double seconds() const;

    /// Reads the output until the program ends, at most until \a seconds after the start.
    ProgramEnd wait(double seconds);
    /// Reads the output for \a seconds and returns whether the program is still running.
    bool isRunningAfter(double seconds);
    /// Waits until the program has children that did not use the processor for half a second, and returns
    /// them. Empty if that does not happen within \a seconds.
    QList<pid_t> waitForSleepingChildren(double seconds);

    /// The living processes that have the program among their ancestors or use its working directory.
    QList<pid_t> processes() const;

private:
    void read(int milliseconds);
    bool reap();

    QTemporaryDir m_folder;
    pid_t m_pid = -1;
    int m_outputFd = -1;
    int m_errorsFd = -1;
    bool m_reaped = false;
    int m_status = 0;
    double m_seconds = 0;
    std::chrono::steady_clock::time_point m_start;
    QByteArray m_output;
    QByteArray m_errors;
};

/// Runs a program until it ends, at most for \a seconds.
ProgramEnd runToItsEnd(const ProgramStart &start, double seconds);

bool isAlive(pid_t pid);
/// Waits up to \a seconds for the end of all of \a processes, and returns those that still live.
QList<pid_t> waitForTheEndOf(const QList<pid_t> &processes, double seconds);
/// The living processes, except this one, that were started with the variable \a entry, "NAME=VALUE".
QList<pid_t> processesWithVariable(const QByteArray &entry);
