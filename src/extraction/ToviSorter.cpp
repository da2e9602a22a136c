#include "extraction/ToviSorter.h"

#include "extraction/FetchAhead.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhotoArray.h"
#include "platform/text/Cp932.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <unordered_map>

namespace
{
constexpr const char* numericKey = "シリアル番号";

/// The number at the front of \p text, after white space; 0 without digits. One that doesn't fit
/// becomes the nearest that does.
int DecimalPrefix(const char* text)
{
    constexpr int decimal = 10;
    return static_cast<int>(
        std::clamp<long long>(std::strtoll(text, nullptr, decimal), INT_MIN, INT_MAX));
}

/// Makes the keys of texts. Many photographs share a value: a long one is made into its key once.
class TextKeys
{
public:
    /// \p value stays as it is while this object is used.
    std::string Of(std::string_view value)
    {
        constexpr std::size_t longValue = 16;
        if (value.size() < longValue) return Cp932::SortKey(value);
        const auto [place, isNew] = known.try_emplace(value);
        if (isNew) place->second = Cp932::SortKey(value);
        return place->second;
    }

private:
    std::unordered_map<std::string_view, std::string> known;
};

/// An entry as it is sorted: in one piece and without a string, since most comparisons end at the
/// first bytes.
struct SortItem
{
    /// The first bytes of the text, filled up with 0.
    std::array<std::uint64_t, 4> words{};
    const ToviSorter::Data* entry = nullptr;
    /// The words are the whole key.
    bool whole = true;
};

/// The positions in \p ref in the order of their photo indexes: photographs lie in memory in the
/// order of the actual array, of \p photos ones, while the current array jumps about in it.
std::vector<int> PositionsByIndex(const ToviPhotoRef& ref, int photos)
{
    constexpr int none = -1;
    std::vector<int> positions(static_cast<std::size_t>(photos), none);
    for (int i = 0; i < ref.GetSize(); ++i) {
        const int index = ref[i];
        if (index < 0 || index >= photos) ThrowOutsideArray(index, photos);
        positions[static_cast<std::size_t>(index)] = i;
    }
    std::erase(positions, none);
    return positions;
}

constexpr std::size_t wordBytes = sizeof(std::uint64_t);

/// The word that \p text has at \p from, such that words compare as the bytes do.
std::uint64_t WordAt(const std::string& text, std::size_t from)
{
    std::uint64_t word = 0;
    for (std::size_t i = from; i < from + wordBytes; ++i) {
        word = word << CHAR_BIT | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
    }
    return word;
}

SortItem MakeItem(const ToviSorter::Data& entry)
{
    SortItem item;
    item.entry = &entry;
    for (std::size_t i = 0; i < item.words.size() && i * wordBytes < entry.text.size(); ++i) {
        item.words[i] = WordAt(entry.text, i * wordBytes);
    }
    item.whole = entry.text.size() <= sizeof item.words;
    return item;
}

/// The photo indexes in the ascending order of the texts, equal ones in their own order.
std::vector<int> SortByText(const std::vector<ToviSorter::Data>& entries)
{
    std::vector<SortItem> items;
    items.reserve(entries.size());
    for (const ToviSorter::Data& entry : entries) items.push_back(MakeItem(entry));
    std::sort(items.begin(), items.end(), [](const SortItem& a, const SortItem& b) {
        for (std::size_t i = 0; i < a.words.size(); ++i) {
            if (a.words[i] != b.words[i]) return a.words[i] < b.words[i];
        }
        if (a.whole && b.whole) return a.entry->index < b.entry->index;
        return ToviSorter::CompareUp(*a.entry, *b.entry) < 0;
    });
    std::vector<int> indexes;
    indexes.reserve(items.size());
    for (const SortItem& item : items) indexes.push_back(item.entry->index);
    return indexes;
}

/// The photo indexes in the ascending order of the numbers, equal ones in their own order: number
/// and index fit into one word.
std::vector<int> SortByNumber(const std::vector<ToviSorter::Data>& entries)
{
    constexpr int indexBits = 32;
    std::vector<std::uint64_t> words;
    words.reserve(entries.size());
    for (const ToviSorter::Data& entry : entries) {
        const auto rank =
            static_cast<std::uint64_t>(static_cast<std::int64_t>(entry.number) - INT_MIN);
        words.push_back(rank << indexBits | static_cast<std::uint32_t>(entry.index));
    }
    std::sort(words.begin(), words.end());
    std::vector<int> indexes;
    indexes.reserve(words.size());
    for (const std::uint64_t word : words) indexes.push_back(static_cast<int>(word & UINT32_MAX));
    return indexes;
}

int SignOf(int number)
{
    return (number > 0) - (number < 0);
}
} // namespace

void ToviSorter::PrepareSort(const CString& key, const ToviPhotoRef& ref)
{
    if (photos == nullptr || ref.IsEmpty()) return;
    std::vector<ToviPhoto*> inOrder;
    entries.clear();
    entries.reserve(static_cast<std::size_t>(ref.GetSize()));
    inOrder.reserve(entries.capacity());
    for (const int i : PositionsByIndex(ref, photos->GetSize())) {
        inOrder.push_back((*photos)[ref[i]]);
        entries.emplace_back().index = ref[i];
    }
    const int item = itemDef->GetIndexFromTitle(key);
    const bool numeric = key == numericKey;
    TextKeys keys;
    for (std::size_t i = 0; i < inOrder.size(); ++i) {
        FetchAhead(inOrder, i);
        const char* const value = inOrder[i]->GetTitle(item);
        entries[i].numeric = numeric;
        if (numeric) {
            entries[i].number = DecimalPrefix(value);
        } else {
            entries[i].text = keys.Of(value);
        }
    }
}

void ToviSorter::QuickSort(bool ascending, ToviPhotoRef& ref)
{
    if (entries.empty()) return;
    std::vector<int> indexes =
        entries.front().numeric ? SortByNumber(entries) : SortByText(entries);
    // Descending is the exact mirror of ascending, equal keys included.
    if (!ascending) std::reverse(indexes.begin(), indexes.end());
    CArray<int> sorted;
    sorted.Reserve(static_cast<int>(indexes.size()));
    for (const int index : indexes) sorted.Add(index);
    ref.Assign(std::move(sorted));
}

int ToviSorter::CompareUp(const Data& a, const Data& b)
{
    const int byKey =
        a.numeric ? (a.number > b.number) - (a.number < b.number) : SignOf(a.text.compare(b.text));
    if (byKey != 0) return byKey;
    return a.index < b.index ? -1 : 1;
}
