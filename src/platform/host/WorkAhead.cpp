#include "platform/host/WorkAhead.h"

#include <oneapi/tbb/task_group.h>

#include <algorithm>
#include <deque>

namespace
{
/// A maker at work, which is waited for in any case.
class Maker
{
public:
    Maker(const std::function<void(int)>& make, int number)
    {
        group.run([&make, number] { make(number); });
    }
    Maker(const Maker&) = delete;
    Maker& operator=(const Maker&) = delete;
    ~Maker()
    {
        if (waited) return;
        group.cancel();
        try {
            group.wait();
        } catch (...) {
            // Another one's exception is on its way.
        }
    }

    /// Works meanwhile. Throws what the maker has thrown.
    void Wait()
    {
        waited = true;
        group.wait();
    }

private:
    tbb::task_group group;
    bool waited = false;
};
} // namespace

void WorkAhead(int count, int ahead, const std::function<void(int)>& make,
               const std::function<bool(int)>& take)
{
    std::deque<Maker> makers;
    int next = 0;
    for (int number = 0; number < count; ++number) {
        for (; next < std::min(count, number + ahead); ++next) makers.emplace_back(make, next);
        makers.front().Wait();
        makers.pop_front();
        if (!take(number)) return;
    }
}
