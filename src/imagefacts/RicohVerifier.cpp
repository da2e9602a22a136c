#include "imagefacts/RicohVerifier.h"

#include "platform/files/MibFile.h"

#include <new>

namespace
{
/// No photograph comes near it, so whatever is larger isn't one.
constexpr std::size_t largestFile = std::size_t{1} << 30;

// The file is read and not mapped: a map of a file that is cut off meanwhile, or that a worn disc
// can't give, ends the program at the first byte that isn't there.
std::optional<std::string> ReadWhole(const CString& path)
{
    try {
        return MibReadFile(path, largestFile);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}
} // namespace

RicohVerifier::RicohVerifier()
    : library(FindLibraryBesideProgram(libraryName)),
      verify(library.Function<RVJ_Verify>("RVJ_Verify"))
{}

std::optional<int> RicohVerifier::Verify(const CString& path) const
{
    if (!IsReady()) return std::nullopt;
    const std::optional<std::string> bytes = ReadWhole(path);
    if (!bytes) return std::nullopt;
    return verify(bytes->data(), bytes->size());
}
