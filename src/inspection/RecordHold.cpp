#include "inspection/RecordHold.h"

#include "inspection/RecordProblems.h"
#include "platform/files/MibFile.h"
#include "work/ToviProgressDlg.h"

#include <algorithm>
#include <optional>
#include <thread>

namespace
{
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds timeBetweenTries{10};
/// Most programs hold a record for less, and a window that flashes tells nothing.
constexpr milliseconds unseenWait{300};

CString TargetOf(const CString& path)
{
    const CString target = MibTargetPath(path);
    return target.empty() ? path : target;
}
} // namespace

RecordHold::RecordHold(const CString& path) : target(TargetOf(path)), lock(target) {}

RecordHold::Outcome RecordHold::Take(milliseconds limit)
{
    const auto start = Clock::now();
    std::optional<ToviProgressDlg> progress;
    while (!lock.Take()) {
        const auto waited = std::chrono::duration_cast<milliseconds>(Clock::now() - start);
        if (waited >= limit) return Outcome::Others;
        std::this_thread::sleep_for(std::min(timeBetweenTries, limit - waited));
        if (waited < unseenWait) continue;
        if (!progress) {
            progress.emplace(false);
            progress->Begin(static_cast<int>(limit.count()));
        }
        progress->SetMessage(RecordIsHeld(target, lock.Holder()));
        progress->SetPos(static_cast<int>(waited.count()));
        if (progress->GetCancel()) return Outcome::Cancelled;
    }
    return Outcome::Held;
}
