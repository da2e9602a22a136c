#pragma once

#include <functional>
#include <vector>

/// Does \p make(0) to \p make(count - 1) on all cores, and on the calling thread \p take(0) to \p
/// take(count - 1) in this order, each when what it takes is made. Makers run at most \p ahead
/// numbers before the one that is taken next; \p ahead is at least 1. False from \p take ends the
/// work. An exception of either leaves this function when no maker runs any more.
void WorkAhead(int count, int ahead, const std::function<void(int)>& make,
               const std::function<bool(int)>& take);

/// The same with results, of which at most \p ahead are there at a time. \p make is called by
/// several threads at once.
template <class Result>
void WorkAhead(int count, int ahead, const std::function<Result(int)>& make,
               const std::function<bool(int, Result)>& take)
{
    std::vector<Result> results(static_cast<std::size_t>(ahead));
    const auto placeOf = [&results](int number) -> Result& {
        return results[static_cast<std::size_t>(number) % results.size()];
    };
    WorkAhead(
        count, ahead, [&](int number) { placeOf(number) = make(number); },
        [&](int number) { return take(number, std::move(placeOf(number))); });
}
