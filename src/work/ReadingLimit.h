#pragma once

#include "platform/text/Export.h"

#include <cstddef>

/// The size up to which a PHOTO.XML is read, in MiB, as the user's profile keeps it: what a damaged
/// file may cost in time and memory. The largest works, with 50,000 photographs, take up to 128.
namespace ReadingLimit
{
inline constexpr int usual = 256;
inline constexpr int smallest = 1;
inline constexpr int largest = 1024;

/// The user's limit; the usual one as long as none was saved.
TOVI_EXPORT int Load();
/// The same in bytes.
TOVI_EXPORT std::size_t LoadInBytes();
/// False when it could not be kept.
TOVI_EXPORT bool Save(int limit);
} // namespace ReadingLimit

/// How much of the pictures that windows show is kept in memory, in MiB, as the user's profile
/// keeps it.
namespace PictureMemory
{
inline constexpr int usual = 512;
inline constexpr int smallest = 64;
inline constexpr int largest = 16384;

/// As those of ReadingLimit.
TOVI_EXPORT int Load();
TOVI_EXPORT std::size_t LoadInBytes();
TOVI_EXPORT bool Save(int limit);
} // namespace PictureMemory
