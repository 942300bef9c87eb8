// Why a part of a report is missing.
#pragma once

#include <QtCore/QString>

enum class FailureReason {
    TimedOut,
    Crashed,
    Exited, ///< ended by itself before it was done
    NotStarted,
    NotTried, ///< the time limit was reached
};

/// Why there is no text.
struct Failure
{
    FailureReason reason = FailureReason::NotTried;
    QString code;            ///< of a crash: signal or exception; of an end: exit code
    qint64 milliseconds = 0; ///< how long it was waited for
};
