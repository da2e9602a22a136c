#pragma once

#include "intake/IntakeDelivery.h"

/// The random numbers of samples: SplitMix64 (Steele, Lea and Flood, 2014), which is written down
/// here so that a sample is the same on every machine and with every library. Its state begins at
/// the seed; each number is
///
///     state += 0x9E3779B97F4A7C15
///     z = state
///     z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9
///     z = (z ^ z >> 27) * 0x94D049BB133111EB
///     z ^ z >> 31
///
/// in 64 bits. Below(n) takes the first number z that is under the largest multiple of n that fits
/// into 64 bits, and gives z mod n.
class TOVI_EXPORT SampleDraw
{
public:
    explicit SampleDraw(std::uint64_t seed) : state(seed) {}

    std::uint64_t Next();
    /// A whole number from 0 to \p count - 1; \p count is at least 1.
    std::uint64_t Below(std::uint64_t count);

private:
    std::uint64_t state;
};

/// What is to be looked at: all 代表写真, all 提出頻度写真, a share of the rest, and of each 細別
/// no fewer than some.
struct SampleTerms
{
    /// Of the rest, in percent, 0 to 100; rounded up.
    int rate = 10;
    int least = 3;
    std::uint64_t seed = 1;

    /// The terms in words.
    TOVI_EXPORT CString Text() const;
};

/// What Sample() draws is put down under this name, so that a sample can be drawn anew.
inline constexpr const char* sampleMethod = "splitmix64/1";

/// The photo indexes of the sample, ascending. The draw takes \p count of a list by exchanging its
/// place i (0 to count - 1) with the place i + Below(length - i): first of the photographs that are
/// no 代表写真 and no 提出頻度写真, in the order of PHOTO.XML; then, one 細別 (with its 工種 and
/// 種別) after the other in the order in which they first stand there, of those in it that are not
/// in the sample yet.
TOVI_EXPORT std::vector<int> DrawSample(const IntakeDelivery& delivery, const SampleTerms& terms);

/// Saves the record of \p document to the file \p record, with the terms and the sample as a
/// processing instruction behind the root, from where each later save takes them over. Fails as
/// ToviData::SaveExamination does.
TOVI_EXPORT bool SaveRecordWithSample(ToviData& document, const CString& record,
                                      const SampleTerms& terms, const std::vector<int>& sample,
                                      int* result);

/// \p sample as "0-4,7,9-12".
TOVI_EXPORT CString RangesText(const std::vector<int>& sample);
