#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <functional>
#include <unordered_map>
#include <vector>

class ToviNode;

/// How many photographs lie on each node of a tree and beneath it, which is what a click on it
/// shows, and how many of them are left to be inspected. Kept while labels change.
class TOVI_EXPORT NodeTally
{
public:
    struct Tally
    {
        int all = 0;
        int unchecked = 0;

        bool operator==(const Tally&) const = default;
    };
    using IsUnchecked = std::function<bool(int photo)>;

    /// Counts the tree under \p root anew. Its nodes are known by their addresses until then.
    void Count(const ToviNode& root, const IsUnchecked& isUnchecked);
    void Clear();
    /// Takes up what has become of \p photo, which may be one that is nowhere in the tree.
    void Change(int photo, bool isUnchecked);

    /// Nothing for a node that isn't of the tree.
    Tally Of(const ToviNode* node) const;

private:
    struct Entry
    {
        int parent;
        Tally tally;
    };
    struct Photo
    {
        int entry;
        bool isUnchecked;
    };

    std::vector<Entry> entries;
    std::unordered_map<const ToviNode*, int> entryOf;
    std::unordered_map<int, Photo> photos;
};

/// What is said of a node with \p own photographs of its own behind their number: "計 120、未検査
/// 8", without the sum where it is the same; empty for a node without photographs.
TOVI_EXPORT CString TallyText(const NodeTally::Tally& tally, int own);
