// One call of every simulated function that can fail, with poisoned memory.
#pragma once

#include "poisoned_buffer.h"

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <functional>
#include <vector>

/// One call and what it returns when it fails with an error.
struct FailingCall
{
    /// What a failing call returns: its error, zero and GetLastError(), zero alone, or
    /// EINVAL.
    enum Failure {
        Status,
        LastError,
        Zero,
        InvalidArgument,
    };

    QByteArray name;
    /// Makes the call, which may write to the buffer, and returns its result.
    std::function<qint64(PoisonedBuffer &)> make;
    Failure failure;
    bool needsMachine = true; // fails when no machine is described
};
Q_DECLARE_METATYPE(FailingCall)

std::vector<FailingCall> failingCalls();

/// A machine where each of them succeeds: registry.reg and system.json.
QByteArray answeringRegistry();
QByteArray answeringSystem();
