#include "windows/trees/NodeTally.h"

#include "photos/ToviNode.h"

#include <utility>

void NodeTally::Clear()
{
    entries.clear();
    entryOf.clear();
    photos.clear();
}

void NodeTally::Count(const ToviNode& root, const IsUnchecked& isUnchecked)
{
    Clear();
    std::vector<std::pair<const ToviNode*, int>> open{{&root, -1}};
    while (!open.empty()) {
        const auto [node, parent] = open.back();
        open.pop_back();
        const int entry = static_cast<int>(entries.size());
        entries.push_back({parent, {}});
        entryOf.emplace(node, entry);
        for (const int photo : node->GetIndexes()) {
            const bool unchecked = isUnchecked(photo);
            photos[photo] = {entry, unchecked};
            ++entries.back().tally.all;
            entries.back().tally.unchecked += unchecked ? 1 : 0;
        }
        for (const ToviNode* child : node->Items()) open.emplace_back(child, entry);
    }
    // A parent stands in front of all that is beneath it.
    for (std::size_t i = entries.size(); i-- > 1;) {
        const auto [parent, tally] = entries[i];
        entries[static_cast<std::size_t>(parent)].tally.all += tally.all;
        entries[static_cast<std::size_t>(parent)].tally.unchecked += tally.unchecked;
    }
}

void NodeTally::Change(int photo, bool isUnchecked)
{
    const auto known = photos.find(photo);
    if (known == photos.end()) return;
    if (std::exchange(known->second.isUnchecked, isUnchecked) == isUnchecked) return;
    for (int entry = known->second.entry; entry >= 0;) {
        Entry& above = entries[static_cast<std::size_t>(entry)];
        above.tally.unchecked += isUnchecked ? 1 : -1;
        entry = above.parent;
    }
}

NodeTally::Tally NodeTally::Of(const ToviNode* node) const
{
    const auto entry = entryOf.find(node);
    return entry == entryOf.end() ? Tally()
                                  : entries[static_cast<std::size_t>(entry->second)].tally;
}

CString TallyText(const NodeTally::Tally& tally, int own)
{
    if (tally.all == 0) return {};
    const CString sum = tally.all == own ? "" : "計 " + std::to_string(tally.all) + "、";
    return sum + (tally.unchecked == 0 ? "検査済" : "未検査 " + std::to_string(tally.unchecked));
}
