// Ctrl+C while a file is written.
#pragma once

/// While it exists, Ctrl+C and the signals that end a program wait. So no half-written file remains.
class InterruptionBlocker
{
public:
    InterruptionBlocker();
    ~InterruptionBlocker();
    InterruptionBlocker(const InterruptionBlocker &) = delete;
    InterruptionBlocker &operator=(const InterruptionBlocker &) = delete;
};
