// Every simulated call that can fail, made once with poisoned memory.
#pragma once

#include "poisoned_buffer.h"

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <functional>
#include <vector>

/// One call and what it returns when it fails with an error.
struct FailingCall
{
    /// What a failing call returns: its error, zero with the error as last error,
    /// zero alone, or the C library's EINVAL.
    enum Failure {
        Status,
        LastError,
        Zero,
        InvalidArgument,
    };

    QByteArray name;
    /// Makes the call, which may write its answer to the buffer; the result.
    std::function<qint64(PoisonedBuffer &)> make;
    Failure failure;
    bool needsMachine = true; // made alone, it fails when no machine is described
};
Q_DECLARE_METATYPE(FailingCall)

std::vector<FailingCall> failingCalls();

/// A machine where each of them succeeds: registry.reg and system.json.
QByteArray answeringRegistry();
QByteArray answeringSystem();
