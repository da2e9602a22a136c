#pragma once

#include "platform/text/Text.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>

class ToviData;

/// Sizes of files in bytes, by their paths beneath a folder, without letter case and with "/".
using FileSizes = std::map<CString, std::uint64_t>;

/// The same as text.
CString PackSizes(const FileSizes& sizes);
/// What can be read of \p text.
FileSizes UnpackSizes(std::string_view text);

/// What came between two looks at the same delivery.
struct FileDifference
{
    CStringArray added;
    CStringArray missing;
    CStringArray changed;
};
FileDifference DifferenceOf(const FileSizes& before, const FileSizes& now);
/// That in a sentence; empty when nothing did.
TOVI_EXPORT CString TellDifference(const FileDifference& difference);

/// Looks at the photographs and drawings of a delivery on a thread of its own, which nobody waits
/// for: a share that doesn't answer holds nobody up.
class FileLook
{
public:
    /// Of \p document as it is now.
    explicit FileLook(ToviData& document);
    FileLook(const FileLook&) = delete;
    FileLook& operator=(const FileLook&) = delete;
    ~FileLook();

    /// The files that are there; nothing until it is over.
    std::optional<FileSizes> Found() const;

private:
    struct Shared;

    std::shared_ptr<Shared> shared;
};
