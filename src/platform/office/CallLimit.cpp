#include "platform/office/CallLimit.h"

#include <condition_variable>
#include <mutex>
#include <system_error>

namespace
{
/// Thirty times what the longest call of a report of 10,000 photographs takes.
constexpr auto limit = std::chrono::seconds(30);

void KillBehindLimit(const std::stop_token& stop, const OfficeProcess& office)
{
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any ended;
    ended.wait_for(lock, stop, limit, [] { return false; });
    if (!stop.stop_requested()) office.Kill();
}
} // namespace

CallLimit::CallLimit(const OfficeProcess& office)
{
    try {
        watch =
            std::jthread([&office](const std::stop_token& stop) { KillBehindLimit(stop, office); });
    } catch (const std::system_error&) {
        // No thread is to be had: the calls go on without a bound.
    }
}
