#pragma once

#include "platform/text/Export.h"

/// One verifier of the chain that tells whether a photograph was altered after it was taken. This
/// one judges no file; those that ask an outside party's library derive from it.
class TOVI_EXPORT ToviCheckProcessor
{
public:
    /// The result of one check. The numbers are fixed; none has the value 3.
    enum CheckStatus : int
    {
        /// The verifier confirms the file.
        StatusUnaltered = 0,
        /// The verifier finds that the file was altered.
        StatusAltered = 1,
        /// The file is not one that this verifier can judge.
        StatusOutsideTarget = 2,
        /// No answer: no verifier, no file, or an answer that isn't known.
        StatusError = 4
    };

    ToviCheckProcessor() = default;
    ToviCheckProcessor(const ToviCheckProcessor&) = delete;
    ToviCheckProcessor& operator=(const ToviCheckProcessor&) = delete;
    virtual ~ToviCheckProcessor() = default;

    /// The verifier can be had on this machine.
    virtual bool IsEnableDLL() { return true; }
    /// Makes the verifier ready. False leaves it out of the chain.
    virtual bool Initiate() { return true; }
    /// Gives back what Initiate took.
    virtual void Terminate() {}
    /// The verifier is to be asked about the file \p path (may be null).
    virtual bool IsTarget(const char* /*path*/) { return false; }
    /// StatusOutsideTarget of this verifier leaves the file to those behind it.
    virtual bool IsContinueOutsideTarget() { return true; }
    /// Checks the file \p path (may be null).
    virtual CheckStatus Check(const char* /*path*/) { return StatusError; }
};
