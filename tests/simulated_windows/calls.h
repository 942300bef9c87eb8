// A call of every simulated function that can fail. The buffers are poisoned.
#pragma once

#include "poisoned_buffer.h"

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <functional>
#include <vector>

/// A call and how it fails.
struct FailingCall
{
    /// A failing call returns its error, returns 0 and sets the last error, only returns 0, or returns
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
    bool needsMachine = true; // fails if no machine is described
};
Q_DECLARE_METATYPE(FailingCall)

std::vector<FailingCall> failingCalls();

/// The registry.reg and the system.json of a machine on which each of the calls succeeds.
QByteArray answeringRegistry();
QByteArray answeringSystem();
