#pragma once

#include "platform/text/Text.h"

#include <cstdio>
#include <memory>

/// A file that is written anew. Every failure, a full disk too, throws std::runtime_error with a
/// sentence that names the file and the reason.
class SampleFile
{
public:
    explicit SampleFile(const CString& path);

    void Append(std::string_view bytes);
    /// Must be called in the end: only now it is certain that all has been written.
    void Close();

private:
    [[noreturn]] void Fail() const;

    CString filePath;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file;
};

/// Writes the file \p path with \p bytes in it, see SampleFile.
void WriteSampleFile(const CString& path, std::string_view bytes);

/// Makes the folder \p path and those above it; throws as SampleFile does.
void MakeSampleFolder(const CString& path);
