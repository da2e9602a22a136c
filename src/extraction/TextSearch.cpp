#include "extraction/TextSearch.h"

#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/text/SearchFolding.h"

#include <algorithm>
#include <functional>

void TextSearch::LookFor(const CString& theText)
{
    words = SearchWords(theText);
    text = words.empty() ? CString() : theText;
}

bool TextSearch::IsSearched(int item) const
{
    const bool namesFile = item == fileItems.photograph ||
                           std::find(fileItems.drawings.begin(), fileItems.drawings.end(), item) !=
                               fileItems.drawings.end();
    return namesFile || itemDef.GetDef(item).show != ShowNot;
}

void TextSearch::FoldItems()
{
    const auto count = static_cast<std::size_t>(photos.GetSize());
    if (firsts.size() == count + 1) return;
    values.clear();
    begins.clear();
    numbers.clear();
    firsts.assign(1, 0);
    firsts.reserve(count + 1);
    std::vector<bool> searched;
    for (int item = 0; item < itemDef.GetCount(); ++item) searched.push_back(IsSearched(item));
    std::unordered_map<std::string_view, int> known;
    const auto add = [&](const CString& value) {
        const auto [place, isNew] = known.try_emplace(value, static_cast<int>(begins.size()));
        numbers.push_back(place->second);
        if (!isNew) return;
        begins.push_back(values.size());
        values += FoldForSearch(value) + '\n';
    };
    for (const ToviPhoto* const photo : photos) {
        for (const ToviItem& item : photo->GetItems()) {
            const auto index = static_cast<std::size_t>(item.GetDefIndex());
            if (index < searched.size() && searched[index] && !item.GetValue().empty()) {
                add(item.GetValue());
            }
        }
        firsts.push_back(numbers.size());
    }
}

TextSearch::Found TextSearch::FindAmongValues(const CString& word) const
{
    Found found(begins.size());
    const std::boyer_moore_horspool_searcher searcher(word.begin(), word.end());
    auto place = std::search(values.begin(), values.end(), searcher);
    while (place != values.end()) {
        const auto next = std::upper_bound(begins.begin(), begins.end(),
                                           static_cast<std::size_t>(place - values.begin()));
        found[static_cast<std::size_t>(next - begins.begin()) - 1] = true;
        if (next == begins.end()) break;
        place = std::search(values.begin() + static_cast<std::ptrdiff_t>(*next), values.end(),
                            searcher);
    }
    return found;
}

bool TextSearch::HasAny(int photo, const Found& found) const
{
    const auto at = [this](int index) {
        return numbers.begin() +
               static_cast<std::ptrdiff_t>(firsts[static_cast<std::size_t>(index)]);
    };
    return std::any_of(at(photo), at(photo + 1),
                       [&found](int number) { return found[static_cast<std::size_t>(number)]; });
}

const CString& TextSearch::FoldedComment(int photo)
{
    static const CString none;
    const CString& written = photos[photo]->GetComment();
    if (written.empty()) return none;
    Comment& comment = comments[photo];
    if (comment.written != written) comment = {written, FoldForSearch(written)};
    return comment.folded;
}

void TextSearch::Narrow(ToviPhotoRef& current)
{
    if (words.empty()) return;
    FoldItems();
    std::vector<Found> found;
    for (const CString& word : words) found.push_back(FindAmongValues(word));
    CArray<int> result;
    for (const int photo : current) {
        const CString& comment = FoldedComment(photo);
        bool hasAll = true;
        for (std::size_t i = 0; hasAll && i < words.size(); ++i) {
            hasAll = HasAny(photo, found[i]) || comment.find(words[i]) != CString::npos;
        }
        if (hasAll) result.Add(photo);
    }
    current.Assign(result);
}
