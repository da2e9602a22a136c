#pragma once

#include "platform/text/Export.h"

/// Ctrl+C as the Cancel of a long work, for programs without windows.

/// From now on an interrupt that comes while an InterruptListener lives is noted in place of ending
/// the program. One that comes before the last one was noticed ends it all the same, so that a work
/// that hangs can be stopped. A program that was started to ignore interrupts goes on ignoring
/// them.
TOVI_EXPORT void InstallInterruptHandler();

/// Tells once of an interrupt that was noted.
TOVI_EXPORT bool WasInterrupted();

/// Somebody who asks WasInterrupted() as long as it lives.
class TOVI_EXPORT InterruptListener
{
public:
    InterruptListener();
    InterruptListener(const InterruptListener&) = delete;
    InterruptListener& operator=(const InterruptListener&) = delete;
    /// The last one ends the program for an interrupt that nobody asked for: the work was done
    /// before it noticed, but what follows must not go on as if nothing had been said.
    ~InterruptListener();
};
