#pragma once

#include "platform/text/Text.h"

#include <cstdint>
#include <optional>
#include <vector>

class ToviItemDef;
class ToviPhotoArray;

/// What tells the delivery that a record was made of from another with as many photographs: a
/// digest of all file names and serial numbers in their order, and the sizes of some photograph
/// files, which are compared where both sides have them. So discs that weren't in make no
/// difference. It can't tell apart deliveries with the same numbering of which no file was at hand
/// on both sides.
class RecordOrigin
{
public:
    /// That of the delivery of \p photos, as it is now, whose names have the digest \p namesDigest.
    RecordOrigin(const ToviPhotoArray& photos, CString namesDigest);
    /// The digest of all file names and serial numbers. \p file is the definition index of the
    /// files' names.
    static CString DigestNames(const ToviPhotoArray& photos, const ToviItemDef& definitions,
                               int file);
    /// That of the record that says \p text; where this isn't like what Text() gives, it differs
    /// from none.
    explicit RecordOrigin(const CString& text);

    CString Text() const;
    /// Wherein the two differ, in a sentence; empty when in nothing that both say.
    CString DifferenceFrom(const RecordOrigin& other) const;

private:
    CString names;
    /// Nothing for a file that wasn't there.
    std::vector<std::optional<std::uint64_t>> sizes;
};
