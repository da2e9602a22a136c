#pragma once

#include "photos/ToviNode.h"
#include "photos/ToviPhotoArray.h"

#include <functional>
#include <span>
#include <unordered_map>
#include <utility>

class ToviItemDef;

/// Hangs photo indexes into a classification tree, by the values of the photographs' items.
class TreeBuilder
{
public:
    /// \p rootNode is emptied; it outlives the builder.
    explicit TreeBuilder(ToviNode& rootNode);

    /// The work-type tree: \p titles are its levels from the top down, of which those count that
    /// \p def defines. Missing values at the end of a path make no nodes.
    void BuildByWorkType(ToviItemDef& def, const ToviPhotoArray& photos,
                         std::span<const char* const> titles);

    /// The tree of one level: every photograph with an item \p title lies on a node of the first
    /// level, that for missing values when the item is empty.
    void BuildByPlace(ToviItemDef& def, const ToviPhotoArray& photos, const char* title);

private:
    struct ChildHash
    {
        std::size_t operator()(const std::pair<const ToviNode*, CString>& child) const
        {
            return std::hash<const ToviNode*>()(child.first) ^ std::hash<CString>()(child.second);
        }
    };

    ToviNode* ChildOf(ToviNode* node, const CString& title);
    void Hang(int photoIndex, const CStringArray& values);

    ToviNode& root;
    /// The children by parent and title, so that a tree with one node for each photograph is built
    /// in one pass as well.
    std::unordered_map<std::pair<const ToviNode*, CString>, ToviNode*, ChildHash> nodes;
};
