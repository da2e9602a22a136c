#pragma once

#include "intake/PictureLikeness.h"

#include <functional>

/// Finds hashes that differ from a given one in few bits without looking at all: those that differ
/// in at most 11 have a quarter in which they differ in at most 2 (multi-index hashing: M. Norouzi,
/// A. Punjani and D. Fleet, Fast Search in Hamming Space with Multi-Index Hashing, CVPR 2012).
class HashIndex
{
public:
    static constexpr int mostBitsApart = 11;

    /// Of \p theHashes, which outlive this.
    explicit HashIndex(const std::vector<PictureHash>& theHashes);

    /// Calls \p found with the place of each hash that differs from \p hash in at most \p bits,
    /// which is at most mostBitsApart; perhaps more than once.
    void Find(PictureHash hash, int bits, const std::function<void(std::size_t)>& found) const;

private:
    static constexpr std::size_t quarters = 4;
    static constexpr std::size_t valuesOfQuarter = std::size_t{1} << 16;

    /// The places of the hashes by one quarter of their bits: those with the value v stand from
    /// starts[v] up to starts[v + 1].
    struct Table
    {
        std::vector<std::uint32_t> starts;
        std::vector<std::uint32_t> places;
    };

    const std::vector<PictureHash>& hashes;
    std::array<Table, quarters> tables;
    /// What a quarter is changed by to come to all that differ from it in at most two bits.
    std::vector<std::uint16_t> changes;
};
