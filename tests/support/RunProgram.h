#pragma once

#include "platform/text/Text.h"

#include <vector>

/// What a program left behind when it ended.
struct ProgramResult
{
    /// The exit status, or 128 + the number of the signal that killed it.
    int status = -1;
    CString output;
    CString errors;
};

/// Runs a program of this build, \p arguments[0] being its name, or another with its full path,
/// with standard input closed and a configuration folder \p configFolder of its own, and waits for
/// its end.
ProgramResult RunProgram(const std::vector<CString>& arguments, const CString& configFolder);
