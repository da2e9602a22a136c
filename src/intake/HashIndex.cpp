#include "intake/HashIndex.h"

namespace
{
constexpr unsigned bitsOfQuarter = 16;

std::uint16_t QuarterOf(PictureHash hash, std::size_t quarter)
{
    return static_cast<std::uint16_t>(hash >> (bitsOfQuarter * quarter));
}
} // namespace

HashIndex::HashIndex(const std::vector<PictureHash>& theHashes) : hashes(theHashes)
{
    for (std::size_t quarter = 0; quarter < quarters; ++quarter) {
        Table& table = tables[quarter];
        table.starts.assign(valuesOfQuarter + 1, 0);
        table.places.resize(hashes.size());
        for (const PictureHash hash : hashes) ++table.starts[QuarterOf(hash, quarter) + 1U];
        for (std::size_t v = 0; v < valuesOfQuarter; ++v) table.starts[v + 1] += table.starts[v];
        std::vector<std::uint32_t> next(table.starts.begin(), table.starts.end() - 1);
        for (std::size_t i = 0; i < hashes.size(); ++i) {
            table.places[next[QuarterOf(hashes[i], quarter)]++] = static_cast<std::uint32_t>(i);
        }
    }
    changes.push_back(0);
    for (unsigned first = 0; first < bitsOfQuarter; ++first) {
        changes.push_back(static_cast<std::uint16_t>(1U << first));
        for (unsigned second = first + 1; second < bitsOfQuarter; ++second) {
            changes.push_back(static_cast<std::uint16_t>(1U << first | 1U << second));
        }
    }
}

void HashIndex::Find(PictureHash hash, int bits,
                     const std::function<void(std::size_t)>& found) const
{
    for (std::size_t quarter = 0; quarter < quarters; ++quarter) {
        const Table& table = tables[quarter];
        for (const std::uint16_t change : changes) {
            const std::size_t value = QuarterOf(hash, quarter) ^ change;
            for (std::uint32_t i = table.starts[value]; i < table.starts[value + 1]; ++i) {
                const std::size_t place = table.places[i];
                if (BitsApart(hashes[place], hash) <= bits) found(place);
            }
        }
    }
}
