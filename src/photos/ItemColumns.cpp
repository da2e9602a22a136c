#include "photos/ItemColumns.h"

#include "photos/ToviPhotoArray.h"
#include "platform/text/Cp932.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <numeric>

namespace
{
int DecimalPrefix(const CString& text)
{
    constexpr int decimal = 10;
    return static_cast<int>(
        std::clamp<long long>(std::strtoll(text.c_str(), nullptr, decimal), INT_MIN, INT_MAX));
}

/// The place of each of \p keys in their order; equal ones share it.
template <class Key>
std::vector<int> PlacesOf(const std::vector<Key>& keys)
{
    std::vector<int> ordered(keys.size());
    std::iota(ordered.begin(), ordered.end(), 0);
    const auto keyOf = [&keys](int number) -> const Key& {
        return keys[static_cast<std::size_t>(number)];
    };
    std::sort(ordered.begin(), ordered.end(),
              [&keyOf](int a, int b) { return keyOf(a) < keyOf(b); });
    std::vector<int> places(keys.size());
    int place = 0;
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        if (i > 0 && keyOf(ordered[i - 1]) < keyOf(ordered[i])) ++place;
        places[static_cast<std::size_t>(ordered[i])] = place;
    }
    return places;
}

template <class Key, class MakeKey>
std::vector<int> PlacesBy(const std::deque<CString>& values, MakeKey makeKey)
{
    std::vector<Key> keys;
    keys.reserve(values.size() + 1);
    for (const CString& value : values) keys.push_back(makeKey(value));
    keys.push_back(makeKey(CString()));
    return PlacesOf(keys);
}
} // namespace

ItemColumn::ItemColumn(const ToviPhotoArray& photos, int item)
    : firsts(static_cast<std::size_t>(photos.GetSize()), none)
{
    if (item < 0) return;
    std::unordered_map<std::string_view, int> numbers;
    const auto numberOf = [this, &numbers](const CString& value) {
        const auto known = numbers.find(value);
        if (known != numbers.end()) return known->second;
        const int number = static_cast<int>(values.size());
        numbers.emplace(values.emplace_back(value), number);
        return number;
    };
    for (int index = 0; index < PhotoCount(); ++index) {
        const ToviPhoto* const photo = photos[index];
        if (photo == nullptr) continue;
        int& first = firsts[static_cast<std::size_t>(index)];
        for (const ToviItem& candidate : photo->GetItems()) {
            if (candidate.GetDefIndex() != item) continue;
            const int number = numberOf(candidate.GetValue());
            if (first == none) {
                first = number;
            } else {
                others[index].push_back(number);
            }
        }
    }
}

bool ItemColumn::HasAny(int photo, const std::vector<bool>& wanted) const
{
    const int first = First(photo);
    if (first == none) return false;
    if (wanted[static_cast<std::size_t>(first)]) return true;
    const auto more = others.find(photo);
    return more != others.end() &&
           std::any_of(more->second.begin(), more->second.end(),
                       [&wanted](int number) { return wanted[static_cast<std::size_t>(number)]; });
}

const std::vector<int>& ItemColumn::Ranks(ValueOrder order) const
{
    std::vector<int>& made = ranks[static_cast<std::size_t>(order)];
    if (!made.empty()) return made;
    const std::vector<int> places = order == ValueOrder::Number
                                        ? PlacesBy<int>(values, DecimalPrefix)
                                        : PlacesBy<std::string>(values, Cp932::SortKey);
    made.reserve(firsts.size());
    for (const int first : firsts) {
        made.push_back(first == none ? places.back() : places[static_cast<std::size_t>(first)]);
    }
    return made;
}

const ItemColumn& ItemColumns::Of(int item) const
{
    const auto known = columns.find(item);
    if (known != columns.end() && known->second.PhotoCount() == photos.GetSize()) {
        return known->second;
    }
    return columns.insert_or_assign(item, ItemColumn(photos, item)).first->second;
}
