#include "intake/Sampling.h"

#include "review/ToviXmlSaveManager.h"

#include <limits>
#include <map>
#include <numeric>

namespace
{
using enum IntakeItem;

/// Takes \p count numbers out of \p list, or all there are.
std::vector<int> Take(std::vector<int> list, std::size_t count, SampleDraw& draw)
{
    count = std::min(count, list.size());
    for (std::size_t i = 0; i < count; ++i) {
        std::swap(list[i], list[i + draw.Below(list.size() - i)]);
    }
    list.resize(count);
    return list;
}

/// The photographs of each 細別, in the order in which these first stand in PHOTO.XML.
std::vector<std::vector<int>> PhotosByDetail(const IntakeDelivery& delivery)
{
    std::map<std::array<std::string_view, 3>, std::size_t> places;
    std::vector<std::vector<int>> groups;
    for (int i = 0; i < delivery.Count(); ++i) {
        const IntakePhoto& photo = delivery.photos[static_cast<std::size_t>(i)];
        if (TrimmedLeft(photo[Detail]).empty()) continue;
        const std::array key = {photo[WorkType], photo[Kind], photo[Detail]};
        const auto [found, isNew] = places.try_emplace(key, groups.size());
        if (isNew) groups.emplace_back();
        groups[found->second].push_back(i);
    }
    return groups;
}
} // namespace

std::uint64_t SampleDraw::Next()
{
    state += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state;
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9U;
    z = (z ^ z >> 27) * 0x94D049BB133111EBU;
    return z ^ z >> 31;
}

std::uint64_t SampleDraw::Below(std::uint64_t count)
{
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    // 2^64 mod count, by which all numbers are more than a multiple of it.
    const std::uint64_t excess = (most % count + 1) % count;
    for (;;) {
        const std::uint64_t number = Next();
        if (number <= most - excess) return number % count;
    }
}

CString SampleTerms::Text() const
{
    return Format("代表写真すべて、提出頻度写真すべて、残りの%d%%、細別ごとに%d枚以上", rate,
                  least);
}

std::vector<int> DrawSample(const IntakeDelivery& delivery, const SampleTerms& terms)
{
    SampleDraw draw(terms.seed);
    std::vector<bool> isTaken(delivery.photos.size());
    const auto take = [&isTaken](const std::vector<int>& photos) {
        for (const int photo : photos) isTaken[static_cast<std::size_t>(photo)] = true;
    };
    std::vector<int> rest;
    for (int i = 0; i < delivery.Count(); ++i) {
        const IntakePhoto& photo = delivery.photos[static_cast<std::size_t>(i)];
        const bool isWanted = photo[KeyPhoto] == "1" || photo[Frequency] == "1";
        isTaken[static_cast<std::size_t>(i)] = isWanted;
        if (!isWanted) rest.push_back(i);
    }
    constexpr std::size_t percent = 100;
    const std::size_t share =
        (rest.size() * static_cast<std::size_t>(terms.rate) + percent - 1) / percent;
    take(Take(std::move(rest), share, draw));
    for (const std::vector<int>& group : PhotosByDetail(delivery)) {
        std::vector<int> left;
        for (const int photo : group) {
            if (!isTaken[static_cast<std::size_t>(photo)]) left.push_back(photo);
        }
        const std::size_t seen = group.size() - left.size();
        const auto least = static_cast<std::size_t>(terms.least);
        if (seen < least) take(Take(std::move(left), least - seen, draw));
    }
    std::vector<int> sample;
    for (int i = 0; i < delivery.Count(); ++i) {
        if (isTaken[static_cast<std::size_t>(i)]) sample.push_back(i);
    }
    return sample;
}

bool SaveRecordWithSample(ToviData& document, const CString& record, const SampleTerms& terms,
                          const std::vector<int>& sample, int* result)
{
    ToviXmlSaveManager manager(record.c_str(), nullptr, document.RootPath());
    manager.WriteOrigin(document.GetRecordOrigin());
    manager.WriteSample(Format("rate=\"%d\" least=\"%d\" seed=\"", terms.rate, terms.least) +
                        std::to_string(terms.seed) + "\" method=\"" + sampleMethod +
                        "\" photos=\"" + RangesText(sample) + "\"");
    return manager.Save(*document.GetPhotoDataArray(), result);
}

CString RangesText(const std::vector<int>& sample)
{
    CString text;
    for (std::size_t i = 0; i < sample.size();) {
        std::size_t end = i;
        while (end + 1 < sample.size() && sample[end + 1] == sample[end] + 1) ++end;
        if (!text.empty()) text += ',';
        text += std::to_string(sample[i]);
        if (end > i) text += '-' + std::to_string(sample[end]);
        i = end + 1;
    }
    return text;
}
