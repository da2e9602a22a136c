#include "photos/ItemColumns.h"

#include "photos/ToviPhotoArray.h"
#include "platform/text/Cp932.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <numeric>

namespace
{
/// A value of the photograph with this index.
struct Place
{
    int photo;
    const CString* value;
};

/// All values of \p item in the order of the photographs. Nothing else is done on this walk, so
/// that the processor waits for several photographs at a time.
std::vector<Place> ValuesOf(const ToviPhotoArray& photos, int item)
{
    std::vector<Place> places;
    if (item < 0) return places;
    places.reserve(static_cast<std::size_t>(photos.GetSize()));
    for (int index = 0; index < photos.GetSize(); ++index) {
        const ToviPhoto* const photo = photos[index];
        if (photo == nullptr) continue;
        for (const ToviItem& candidate : photo->GetItems()) {
            if (candidate.GetDefIndex() == item) places.push_back({index, &candidate.GetValue()});
        }
    }
    return places;
}

int DecimalPrefix(const CString& text)
{
    constexpr int decimal = 10;
    return static_cast<int>(
        std::clamp<long long>(std::strtoll(text.c_str(), nullptr, decimal), INT_MIN, INT_MAX));
}

std::vector<int> Numbers(const ToviPhotoArray& photos, int item)
{
    std::vector<int> numbers(static_cast<std::size_t>(photos.GetSize()), 0);
    int last = -1;
    for (const auto& [photo, value] : ValuesOf(photos, item)) {
        if (photo != last) numbers[static_cast<std::size_t>(photo)] = DecimalPrefix(*value);
        last = photo;
    }
    return numbers;
}

/// The place of each of \p keys in their order; equal ones share it.
std::vector<int> PlacesOf(const std::vector<std::string>& keys)
{
    std::vector<int> ordered(keys.size());
    std::iota(ordered.begin(), ordered.end(), 0);
    const auto keyOf = [&keys](int number) -> const std::string& {
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

std::vector<int> TextRanks(const ItemColumn& column)
{
    std::vector<std::string> keys;
    keys.reserve(column.Values().size() + 1);
    for (const CString& value : column.Values()) keys.push_back(Cp932::SortKey(value));
    keys.emplace_back();
    const std::vector<int> places = PlacesOf(keys);
    std::vector<int> ranks;
    ranks.reserve(column.Firsts().size());
    for (const int first : column.Firsts()) {
        ranks.push_back(first == ItemColumn::none ? places.back()
                                                  : places[static_cast<std::size_t>(first)]);
    }
    return ranks;
}
} // namespace

ItemColumn::ItemColumn(const ToviPhotoArray& photos, int item)
    : firsts(static_cast<std::size_t>(photos.GetSize()), none)
{
    std::unordered_map<std::string_view, int> numbers;
    for (const auto& [photo, value] : ValuesOf(photos, item)) {
        auto known = numbers.find(*value);
        if (known == numbers.end()) {
            const int number = static_cast<int>(values.size());
            known = numbers.emplace(values.emplace_back(*value), number).first;
        }
        int& first = firsts[static_cast<std::size_t>(photo)];
        if (first == none) {
            first = known->second;
        } else {
            others[photo].push_back(known->second);
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

const ItemColumn& ItemColumns::Of(int item) const
{
    const auto known = columns.find(item);
    const auto count = static_cast<std::size_t>(photos.GetSize());
    if (known != columns.end() && known->second.Firsts().size() == count) return known->second;
    return columns.insert_or_assign(item, ItemColumn(photos, item)).first->second;
}

const std::vector<int>& ItemColumns::Ranks(int item, ValueOrder order) const
{
    std::vector<int>& made = ranks[{item, order}];
    if (made.size() == static_cast<std::size_t>(photos.GetSize())) return made;
    made = order == ValueOrder::Number ? Numbers(photos, item) : TextRanks(Of(item));
    return made;
}
