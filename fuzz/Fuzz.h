#pragma once

// What the fuzzers share. Each is one file, of which it defines Try; with clang they are libFuzzer
// programs, with other compilers they try the files that they are given (Replay.cpp).

#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Hands \p input to the code that is fuzzed. What it does wrong ends the program: through a
/// sanitizer, or through Require.
void Try(std::string_view input);

/// Ends the program, so that the input is kept as a finding, unless \p holds.
inline void Require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "Doesn't hold: %s\n", what);
    std::abort();
}

/// The folder of this run.
inline const TempFolder& Folder()
{
    static const TempFolder folder;
    return folder;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TestHost host;
    Try({reinterpret_cast<const char*>(data), size});
    return 0;
}
