#include "windows/loader/LoadDesk.h"

#include <algorithm>

namespace
{
/// The need of what nobody wants, behind those of the urgencies.
constexpr int unwanted = static_cast<int>(Urgency::Idle) + 1;
/// The need before which all others give way.
constexpr int mostNeeded = -1;

using Needs = std::unordered_map<LoadKey, int>;

int NeedOf(const Needs& needs, const LoadKey& key)
{
    const auto found = needs.find(key);
    return found == needs.end() ? unwanted : found->second;
}
} // namespace

LoadDesk::LoadDesk(int workerCount, std::size_t bytes) : workers(workerCount), budget(bytes) {}

void LoadDesk::Want(Viewer viewer, std::vector<LoadWish> wishes)
{
    const std::unordered_set<LoadKey> before = Visible();
    for (const LoadWish& wish : wishes) {
        if (wish.urgency != Urgency::Visible || before.contains(wish.key)) continue;
        const auto found = kept.find(wish.key);
        if (found != kept.end()) found->second.isDoubtful = true;
    }
    if (wishes.empty()) {
        viewers.erase(viewer);
    } else {
        viewers[viewer] = std::move(wishes);
    }
    withoutRoom.clear();
}

void LoadDesk::SetBudget(std::size_t bytes)
{
    budget = bytes;
    MakeRoom(0, mostNeeded);
}

void LoadDesk::Forget(const void* place)
{
    for (auto& [key, run] : running) {
        if (key.place.get() == place) run.isForgotten = true;
    }
    for (auto at = kept.begin(); at != kept.end();) {
        const auto here = at++;
        if (here->first.place.get() == place) Drop(LoadKey(here->first));
    }
}

std::optional<LoadDesk::Task> LoadDesk::Take(Time now)
{
    int busy = 0;
    for (const auto& [key, run] : running) busy += now - run.since <= overdueAfter;
    if (busy >= workers) return std::nullopt;
    const Candidate next = FindNext(busy > 0 && busy >= workers - 1, now);
    if (next.wish == nullptr) return std::nullopt;
    const LoadKey& key = next.wish->key;
    running[key] = {now};
    const auto found = kept.find(key);
    const bool holds = found != kept.end() && found->second.loaded->ok;
    return Task{key, next.wish->work, holds ? found->second.loaded->stamp : CString()};
}

LoadDesk::Candidate LoadDesk::FindNext(bool visibleOnly, Time now) const
{
    Candidate best;
    for (const auto& [viewer, wishes] : viewers) {
        for (std::size_t place = 0; place < wishes.size(); ++place) {
            const LoadWish& wish = wishes[place];
            const bool isVisible = wish.urgency == Urgency::Visible;
            const bool isPicture = wish.key.kind != LoadKind::Survey;
            if (!isVisible && (visibleOnly || (isPicture && !withoutRoom.empty()))) continue;
            // What is in hand comes behind all that is in sight and isn't.
            const bool isInHand = kept.contains(wish.key);
            const std::pair rank(2 * static_cast<int>(wish.urgency) + isInHand, place);
            if (best.wish != nullptr && best.rank <= rank) continue;
            if (IsDue(wish) && !IsHeldUp(wish.key, now)) best = {&wish, rank};
        }
    }
    return best;
}

bool LoadDesk::IsDue(const LoadWish& wish) const
{
    if (running.contains(wish.key) || withoutRoom.contains(wish.key)) return false;
    const auto found = kept.find(wish.key);
    return found == kept.end() || found->second.isDoubtful;
}

bool LoadDesk::IsHeldUp(const LoadKey& key, Time now) const
{
    int overdue = 0;
    for (const auto& [other, run] : running) {
        if (other.place != key.place) continue;
        if (key.kind == LoadKind::Check && other.kind == LoadKind::Check) return true;
        overdue += now - run.since > overdueAfter;
    }
    return overdue >= mostOverdue;
}

bool LoadDesk::Finish(const Task& task, LoadedPtr loaded)
{
    const bool isForgotten = running.extract(task.key).mapped().isForgotten;
    const auto found = kept.find(task.key);
    if (loaded == nullptr && found != kept.end()) found->second.isDoubtful = false;
    if (loaded == nullptr || isForgotten) return false;
    Drop(task.key);
    const int need = NeedOf(FindNeeds(), task.key);
    if (!MakeRoom(loaded->bytes, need)) {
        if (need != unwanted) withoutRoom.insert(task.key);
        return need != unwanted;
    }
    bytesInHand += loaded->bytes;
    kept[task.key] = {std::move(loaded), ++uses};
    return need != unwanted;
}

LoadedPtr LoadDesk::InHand(const LoadKey& key)
{
    const auto found = kept.find(key);
    if (found == kept.end()) return nullptr;
    found->second.lastUse = ++uses;
    return found->second.loaded;
}

bool LoadDesk::IsIdle(Time now) const
{
    return running.empty() && FindNext(false, now).wish == nullptr;
}

std::unordered_set<LoadKey> LoadDesk::Visible() const
{
    std::unordered_set<LoadKey> visible;
    for (const auto& [viewer, wishes] : viewers) {
        for (const LoadWish& wish : wishes) {
            if (wish.urgency == Urgency::Visible) visible.insert(wish.key);
        }
    }
    return visible;
}

/// How soon each thing is wanted by whoever wants it soonest.
std::unordered_map<LoadKey, int> LoadDesk::FindNeeds() const
{
    Needs needs;
    for (const auto& [viewer, wishes] : viewers) {
        for (const LoadWish& wish : wishes) {
            const int need = static_cast<int>(wish.urgency);
            const auto [found, isNew] = needs.try_emplace(wish.key, need);
            if (!isNew) found->second = std::min(found->second, need);
        }
    }
    return needs;
}

/// Makes room for \p bytes that are needed as \p need says by dropping what is needed less; false,
/// with nothing dropped, when that isn't enough.
bool LoadDesk::MakeRoom(std::size_t bytes, int need)
{
    if (bytesInHand + bytes <= budget) return true;
    struct Victim
    {
        int need;
        unsigned lastUse;
        LoadKey key;
    };
    const Needs needs = FindNeeds();
    std::vector<Victim> victims;
    std::size_t left = bytesInHand;
    for (const auto& [key, what] : kept) {
        const int itsNeed = NeedOf(needs, key);
        if (itsNeed <= need && itsNeed != unwanted) continue;
        victims.push_back({itsNeed, what.lastUse, key});
        left -= what.loaded->bytes;
    }
    if (left + bytes > budget) return false;
    std::ranges::sort(victims, [](const Victim& one, const Victim& other) {
        return one.need != other.need ? one.need > other.need : one.lastUse < other.lastUse;
    });
    for (const Victim& victim : victims) {
        // Of what nobody wants some more goes at once, so that this isn't done for each result.
        const std::size_t full = victim.need == unwanted ? budget / 8 * 7 : budget;
        if (bytesInHand + bytes <= full) break;
        Drop(victim.key);
    }
    return true;
}

void LoadDesk::Drop(const LoadKey& key)
{
    const auto found = kept.find(key);
    if (found == kept.end()) return;
    bytesInHand -= found->second.loaded->bytes;
    kept.erase(found);
}
