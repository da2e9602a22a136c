#pragma once

#include "platform/text/Text.h"

#include <cstdint>
#include <functional>
#include <vector>

/// What an archive may hold at most, so that one that means harm neither fills the disk nor keeps
/// us busy.
struct ArchiveLimits
{
    std::size_t files = 400'000;
    std::uint64_t bytes = std::uint64_t{128} << 30;
    std::size_t depth = 16;
    /// How many times as large as the archive its content may be, beside the bytes below. The XML
    /// files of deliveries shrink to a fortieth, photographs hardly.
    std::uint64_t ratio = 100;
    std::uint64_t bytesOfAny = std::uint64_t{64} << 20;
};

/// A regular file in an archive. Folders are told by the paths alone.
struct ArchiveEntry
{
    /// With "/" between the names, from the archive's root on; no name is "." or "..".
    CString path;
    std::uint64_t bytes = 0;
};

struct ArchiveOutcome
{
    /// Why it can't be read, in a Japanese sentence without its full stop; empty when it could.
    CString problem;
    std::vector<ArchiveEntry> entries;
};

/// True when the name of \p path ends as those of the archives do that can be read: .zip, .iso.
TOVI_EXPORT bool IsArchiveName(const CString& path);

/// Lists the files of the ZIP file or ISO image \p path, whose names are in UTF-8 or Shift_JIS. An
/// archive with names that lead out of it, that differ in letter case alone or can't be read, with
/// links or devices, with encrypted files or more than \p limits is refused whole.
ArchiveOutcome ListArchive(const CString& path, const ArchiveLimits& limits = {});

/// Writes the files of \p path of which \p isWanted into the folder \p target, which is ours and
/// empty, with the folders on their way. \p isWanted hears names as ListArchive gives them; the
/// limits are looked at again. \p tell hears how many bytes are done; false from it ends the work
/// with the problem empty. What was written stays.
ArchiveOutcome UnpackArchive(const CString& path, const CString& target,
                             const std::function<bool(const CString& name)>& isWanted,
                             const std::function<bool(std::uint64_t bytes)>& tell,
                             const ArchiveLimits& limits = {});
