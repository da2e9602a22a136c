#pragma once

#include "platform/files/RegularFile.h"

#include <cstdint>

/// The bytes of a regular file, read where they are asked for.
class ExifFileSource
{
public:
    /// A file that can't be read has no bytes.
    explicit ExifFileSource(const CString& path) : file(path) {}

    /// The \p count bytes from \p offset on, or those of them that the file has.
    std::string Read(std::uint64_t offset, std::size_t count) const;

private:
    RegularFile file;
};
