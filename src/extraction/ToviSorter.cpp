#include "extraction/ToviSorter.h"

#include "items/ToviItemDef.h"
#include "photos/ItemColumns.h"

#include <algorithm>

namespace
{
constexpr const char* numericKey = "シリアル番号";
} // namespace

void ToviSorter::PrepareSort(const CString& key, const ToviPhotoRef& ref)
{
    if (columns == nullptr || ref.IsEmpty()) return;
    const std::vector<int>& ranks = columns->Ranks(
        itemDef->GetIndexFromTitle(key), key == numericKey ? ValueOrder::Number : ValueOrder::Text);
    const int photos = static_cast<int>(ranks.size());
    entries.clear();
    entries.reserve(static_cast<std::size_t>(ref.GetSize()));
    for (const int index : ref) {
        if (index < 0 || index >= photos) ThrowOutsideArray(index, photos);
        entries.push_back({index, ranks[static_cast<std::size_t>(index)]});
    }
}

void ToviSorter::QuickSort(bool ascending, ToviPhotoRef& ref)
{
    if (entries.empty()) return;
    std::sort(entries.begin(), entries.end(),
              [](const Data& a, const Data& b) { return CompareUp(a, b) < 0; });
    // Descending is the exact mirror of ascending, equal keys included.
    if (!ascending) std::reverse(entries.begin(), entries.end());
    CArray<int> sorted;
    sorted.Reserve(static_cast<int>(entries.size()));
    for (const Data& entry : entries) sorted.Add(entry.index);
    ref.Assign(std::move(sorted));
}
