#pragma once

#include "photos/PhotoPaths.h"
#include "photos/ToviPhotoRef.h"
#include "platform/text/Text.h"

#include <unordered_map>
#include <vector>

class ToviItemDef;
class ToviPhoto;
class ToviPhotoArray;

/// Finds photographs by what is written of them: the items that are shown anywhere, the names of
/// their files and their comments, as SearchFolding compares them. Items are folded once, each
/// different value of them, at the first search; comments when they are another than at the last
/// one. For one thread.
class TOVI_EXPORT TextSearch
{
public:
    /// Of \p actual with the definitions \p definitions and the items \p named that name files; all
    /// outlive this.
    TextSearch(const ToviPhotoArray& actual, const ToviItemDef& definitions,
               const PhotoPathItems& named)
        : photos(actual), itemDef(definitions), fileItems(named)
    {}

    /// From now on \p text is looked for; nothing is when it is blank.
    void LookFor(const CString& text);
    /// What is looked for, as it was given; empty when nothing is.
    const CString& GetText() const { return text; }

    /// Keeps of \p current the photographs in which each word of the text is found, wherever. An
    /// index outside the actual array throws InvalidArgument. Nothing happens while no text is
    /// looked for.
    void Narrow(ToviPhotoRef& current);

private:
    struct Comment
    {
        CString written;
        CString folded;
    };
    /// Says of the number of each value whether a word is found in it.
    using Found = std::vector<bool>;

    void FoldItems();
    bool IsSearched(int item) const;
    Found FindAmongValues(const CString& word) const;
    bool HasAny(int photo, const Found& found) const;
    const CString& FoldedComment(int photo);

    const ToviPhotoArray& photos;
    const ToviItemDef& itemDef;
    const PhotoPathItems& fileItems;
    CString text;
    std::vector<CString> words;
    /// The different values of all items, folded, each with a line's end behind it, which no word
    /// holds; and where each begins.
    CString values;
    std::vector<std::size_t> begins;
    /// The numbers of the values of all photographs in one piece, and where those of each begin,
    /// with the end of the last behind them.
    std::vector<int> numbers;
    std::vector<std::size_t> firsts;
    std::unordered_map<int, Comment> comments;
};
