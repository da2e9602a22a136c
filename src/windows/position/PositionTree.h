#pragma once

#include "platform/text/CArray.h"
#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <optional>
#include <unordered_map>
#include <vector>

class ToviItemDef;
class ToviNode;
class ToviPhoto;

/// The titles of the classification tree from which the place of \p photo is told, from the top
/// down, for a tree of the type \p treeType (items/TreeType.h). Nothing when
/// its items say no place; for a type that is none, too.
TOVI_EXPORT std::optional<CStringArray> PositionPath(ToviItemDef& definitions,
                                                     const ToviPhoto& photo, int treeType);

/// The titles of a classification tree in the order in which they stand one below the other while
/// all are open, so that a place is found by a look-up. It keeps nothing of the tree itself.
class TOVI_EXPORT PositionTree
{
public:
    static constexpr int none = -1;

    struct Node
    {
        CString title;
        /// Its row, or none for the root.
        int parent;
        /// Its place among the children of the parent.
        int place;
        /// 0 for the root.
        int level;
        std::vector<int> children = {};
        /// The row behind all that stands beneath it.
        int end = 0;
    };

    /// No node.
    PositionTree() = default;
    /// \p root and all beneath it, at whatever depth.
    explicit PositionTree(const ToviNode& root);

    int Count() const { return static_cast<int>(nodes.size()); }
    const Node& At(int row) const { return nodes[static_cast<std::size_t>(row)]; }

    /// The row to which \p path leads from the root, or none. Each title is looked for from behind
    /// the one before (the first from the root on) to the end of what stands beneath the parent of
    /// that one, at any depth: the first row wins.
    int Find(const CStringArray& path) const;

private:
    int FindTitle(const CString& title, int from, int end) const;

    std::vector<Node> nodes;
    /// The rows of each title, ascending.
    std::unordered_map<CString, std::vector<int>> rows;
};
