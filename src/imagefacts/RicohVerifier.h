#pragma once

#include "platform/files/DynamicLibrary.h"

#include <optional>

/// The camera maker's JPEG verifier, a library in the folder of the program.
class TOVI_EXPORT RicohVerifier
{
public:
    /// The name of the library's file without its ending.
    static constexpr const char* libraryName = "RVRFYJPG";

    /// Loads the library, if there is one.
    RicohVerifier();

    /// The verifier can be asked.
    bool IsReady() const { return verify != nullptr; }
    /// What the verifier returns for the bytes of the file \p path, which it gets whole. Nothing
    /// when there is no verifier, or the file can't be read or held in memory.
    std::optional<int> Verify(const CString& path) const;

private:
    using RVJ_Verify = int(const void* fileBytes, unsigned long size);

    DynamicLibrary library;
    RVJ_Verify* verify;
};
