#pragma once

#include "windows/loader/LoadKey.h"

#include <chrono>
#include <map>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Decides what is read next and what of it is kept: the loader without its threads.
///
/// Each viewer (a window) tells all that it wants at present, in order; what nobody wants any more
/// is given up by that. Results are kept as far as the budget goes, and leave it in the order in
/// which they are least needed. Something that comes into sight again is shown at once and compared
/// with its file.
///
/// A file on a share or disc that doesn't answer holds its thread. Such a task is overdue: others
/// take its turn, except for those of the same place once a few wait there.
///
/// Any thread may use it while it holds the owner's lock.
class TOVI_EXPORT LoadDesk
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using Viewer = const void*;

    /// A task that runs for longer is overdue.
    static constexpr auto overdueAfter = std::chrono::seconds(2);
    /// That many overdue tasks are let wait in one place.
    static constexpr int mostOverdue = 2;

    struct Task
    {
        LoadKey key;
        LoadWork work;
        /// The stamp of what is in hand.
        CString known;
    };

    /// For \p workers tasks at once (1 or more) and results of \p budget bytes.
    LoadDesk(int workers, std::size_t budget);

    /// \p viewer wants \p wishes from now on, the soonest of each urgency first, and nothing else.
    void Want(Viewer viewer, std::vector<LoadWish> wishes);
    void SetBudget(std::size_t bytes);
    /// Lets go of all that is in hand of \p place.
    void Forget(const void* place);

    /// The next task, which then runs until it is finished; nothing when none is due. What isn't in
    /// sight leaves one worker free, for what comes into sight.
    std::optional<Task> Take(Time now);
    /// \p loaded is the result of \p task; null: what is in hand still holds. True when somebody
    /// wants it and something else is in hand now, or nothing because there is no room for it.
    bool Finish(const Task& task, LoadedPtr loaded);

    /// What is in hand under \p key, or null.
    LoadedPtr InHand(const LoadKey& key);
    std::size_t BytesInHand() const { return bytesInHand; }
    /// Nothing is due or running.
    bool IsIdle(Time now) const;

private:
    struct Kept
    {
        LoadedPtr loaded;
        unsigned lastUse = 0;
        /// It is to be compared with its file.
        bool isDoubtful = false;
    };
    struct Running
    {
        Time since;
        /// Its result is of no use to anybody.
        bool isForgotten = false;
    };
    struct Candidate
    {
        const LoadWish* wish = nullptr;
        /// The less the sooner.
        std::pair<int, std::size_t> rank;
    };

    bool IsDue(const LoadWish& wish) const;
    bool IsHeldUp(const LoadKey& key, Time now) const;
    Candidate FindNext(bool visibleOnly, Time now) const;
    std::unordered_set<LoadKey> Visible() const;
    std::unordered_map<LoadKey, int> FindNeeds() const;
    bool MakeRoom(std::size_t bytes, int need);
    void Drop(const LoadKey& key);

    int workers;
    std::size_t budget;
    std::size_t bytesInHand = 0;
    unsigned uses = 0;
    std::map<Viewer, std::vector<LoadWish>> viewers;
    std::unordered_map<LoadKey, Kept> kept;
    std::unordered_map<LoadKey, Running> running;
    /// What was read and didn't fit. It isn't tried again, and no more is fetched ahead, until
    /// something else is wanted.
    std::unordered_set<LoadKey> withoutRoom;
};
