#include "loading/UnreadValues.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace
{
class Adoption
{
public:
    Adoption(const DefinitionBlock& definitions, const std::vector<FoundItem>& foundItems,
             ToviItemArray& values)
        : block(definitions), found(foundItems), items(values)
    {
        auto next = found.begin();
        for (int i = 0; i < items.GetSize(); ++i) {
            if (next != found.end() && next->item == i) {
                ++next;
            } else {
                absent[items[i].GetDefIndex()].insert(i);
            }
        }
    }

    /// Takes the value of the element \p leaf, unless it was read. To be called in document order.
    void Take(const DoxIterator& leaf)
    {
        if (PassFound(leaf)) return;
        const int index = DefinitionOf(leaf);
        CString value = leaf.GetText();
        if (index < 0 || value.empty()) return;
        ++adopted;
        std::set<int>& places = absent[index];
        if (places.empty()) {
            additional.emplace_back(index, std::move(value));
            return;
        }
        auto place = places.upper_bound(lastFound);
        if (place == places.end()) place = places.begin();
        items[*place].SetValue(value.c_str());
        places.erase(place);
    }

    /// Puts in the values that take no item's place. Returns how many were taken in all.
    int Finish()
    {
        if (additional.empty()) return adopted;
        std::ranges::stable_sort(additional, {}, &ToviItem::GetDefIndex);
        ToviItemArray all;
        all.Reserve(items.GetSize() + static_cast<int>(additional.size()));
        const std::vector<int> lowest = LowestBehind();
        auto next = additional.begin();
        for (int i = 0; i <= items.GetSize(); ++i) {
            const bool isEnd = i == items.GetSize();
            while (next != additional.end() &&
                   (isEnd || next->GetDefIndex() < lowest[static_cast<std::size_t>(i)])) {
                all.Add(std::move(*next++));
            }
            if (!isEnd) all.Add(std::move(items[i]));
        }
        items = std::move(all);
        return adopted;
    }

private:
    /// True when \p leaf was read.
    bool PassFound(const DoxIterator& leaf)
    {
        while (passed < found.size() && found[passed].element.Position() <= leaf.Position()) {
            const FoundItem& before = found[passed++];
            lastFound = before.item;
            if (before.element == leaf) return true;
        }
        return false;
    }

    /// The definition that names \p leaf; below 0 when none does, or doesn't need it.
    int DefinitionOf(const DoxIterator& leaf) const
    {
        for (int i = block.first; i < block.end; ++i) {
            const Definition& definition = block.list.GetDef(i);
            if (leaf.IsTag(definition.title)) return definition.grade == GradeUnneeded ? -1 : i;
        }
        return -1;
    }

    /// For each item the lowest definition index of it and all behind it.
    std::vector<int> LowestBehind() const
    {
        std::vector<int> lowest(static_cast<std::size_t>(items.GetSize()));
        int low = block.end;
        for (int i = items.GetSize() - 1; i >= 0; --i) {
            low = std::min(low, items[i].GetDefIndex());
            lowest[static_cast<std::size_t>(i)] = low;
        }
        return lowest;
    }

    const DefinitionBlock& block;
    const std::vector<FoundItem>& found;
    ToviItemArray& items;
    /// How many of them stand in front of the place where we are.
    std::size_t passed = 0;
    /// The item of the last one of those; -1 for none.
    int lastFound = -1;
    /// The items that stand for absent elements, by definition.
    std::map<int, std::set<int>> absent;
    std::vector<ToviItem> additional;
    int adopted = 0;
};
} // namespace

UnreadValues AdoptUnreadValues(const DefinitionBlock& block, const DoxIterator& photo,
                               const std::vector<FoundItem>& found, ToviItemArray& items)
{
    Adoption adoption(block, found, items);
    UnreadValues values;
    const CString& photoTag = block.list.GetDef(block.first).title;
    DoxIterator at = photo;
    while (at.NextInside(photo)) {
        if (at.IsTag(photoTag)) ++values.nestedPhotos;
        const bool isLeaf = !DoxIterator(at).Child();
        if (isLeaf) adoption.Take(at);
    }
    values.adopted = adoption.Finish();
    return values;
}
