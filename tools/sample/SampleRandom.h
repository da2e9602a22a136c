#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

/// What random numbers are drawn for. Each has its own, so that more of one thing leaves the others
/// as they were.
enum class SamplePart
{
    Work,
    Photo,
    Drawing,
    Scenery,
    Camera,
    Grain
};

/// Reproducible random numbers: the same with every compiler, which the distributions of the
/// standard library are not.
class SampleRandom
{
public:
    /// Numbers for \p part of the delivery of \p seed, and of several such parts for that \p
    /// number.
    SampleRandom(unsigned seed, SamplePart part, int number = 0)
        : state(Mixed(Mixed(seed) + (static_cast<std::uint64_t>(part) << 40) +
                      static_cast<std::uint64_t>(number)))
    {}

    std::uint64_t Next()
    {
        state += 0x9E3779B97F4A7C15U;
        return Mixed(state);
    }

    /// 0 to \p count - 1.
    int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }
    /// \p low to \p high, both included.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    /// \p low to \p high.
    double Between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(Next() >> 11) * 0x1p-53;
    }
    bool Chance(int percent) { return Below(100) < percent; }

    template <class List>
    const auto& Pick(const List& list)
    {
        return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
    }

private:
    static std::uint64_t Mixed(std::uint64_t bits)
    {
        bits = (bits ^ bits >> 30) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ bits >> 27) * 0x94D049BB133111EBU;
        return bits ^ bits >> 31;
    }

    std::uint64_t state;
};
