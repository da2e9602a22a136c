#include "extraction/ReviewOrder.h"

#include "photos/ToviPhotoArray.h"
#include "platform/text/Cp932.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace
{
/// A text that compares as the labels of \p photo stand to those of others: a pasted one comes in
/// front of a missing one, the first slot first.
std::string LabelKey(const ToviPhoto& photo)
{
    std::string key;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        key += photo.IsLabelPasted(slot) ? '0' : '1';
    }
    return key;
}
} // namespace

bool SortByReview(const CString& key, bool ascending, const ToviPhotoArray& photos,
                  ToviPhotoRef& current)
{
    const bool byLabels = key == labelsSortKey;
    if (!byLabels && key != commentSortKey) return false;
    std::vector<std::pair<std::string, int>> entries;
    for (const int index : current) {
        const ToviPhoto& photo = *photos[index];
        entries.emplace_back(byLabels ? LabelKey(photo) : Cp932::SortKey(photo.GetComment()),
                             index);
    }
    std::sort(entries.begin(), entries.end());
    if (!ascending) std::reverse(entries.begin(), entries.end());
    CArray<int> ordered;
    for (const auto& [_, index] : entries) ordered.Add(index);
    current.Assign(ordered);
    return true;
}
