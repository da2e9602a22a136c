#include "windows/position/PositionTree.h"

#include "items/ToviItemDef.h"
#include "items/TreeType.h"
#include "photos/ToviNode.h"
#include "photos/ToviPhoto.h"

#include <algorithm>
#include <initializer_list>

namespace
{
std::initializer_list<const char*> TitlesOf(int treeType)
{
    static constexpr std::initializer_list<const char*> full = {"写真-大分類", "写真区分", "工種",
                                                                "種別", "細別"};
    static constexpr std::initializer_list<const char*> place = {"撮影箇所"};
    static constexpr std::initializer_list<const char*> work = {"工種", "種別", "細別"};
    switch (treeType) {
    case TreeWorkTypeFull:
        return full;
    case TreePlace:
        return place;
    case TreeWorkType:
        return work;
    default:
        return {};
    }
}
} // namespace

std::optional<CStringArray> PositionPath(ToviItemDef& definitions, const ToviPhoto& photo,
                                         int treeType)
{
    CStringArray values;
    for (const char* title : TitlesOf(treeType)) {
        values.Add(photo.GetTitle(definitions.GetIndexFromTitle(title)));
    }
    const auto isEmpty = [](const CString& value) { return value.empty(); };
    if (treeType != TreePlace && std::all_of(values.begin(), values.end(), isEmpty)) {
        return {};
    }
    if (values[0].empty()) return CStringArray{missingValueTitle};
    CStringArray path;
    const auto end = std::find_if(values.begin(), values.end(), isEmpty);
    for (auto value = values.begin(); value != end; ++value) path.Add(*value);
    return path;
}

PositionTree::PositionTree(const ToviNode& root)
{
    struct Step
    {
        const ToviNode* node;
        int parent;
        int place;
    };
    // The nodes that are still to come, the next one last: a delivered tree may be of any depth.
    std::vector<Step> open = {{&root, none, 0}};
    while (!open.empty()) {
        const Step step = open.back();
        open.pop_back();
        const int row = Count();
        const int level = step.parent == none ? 0 : At(step.parent).level + 1;
        nodes.push_back({step.node->Title(), step.parent, step.place, level});
        rows[nodes.back().title].push_back(row);
        if (step.parent != none) {
            nodes[static_cast<std::size_t>(step.parent)].children.push_back(row);
        }
        const ToviNodeArray& children = step.node->Items();
        for (int place = children.GetSize() - 1; place >= 0; --place) {
            open.push_back({children[place], row, place});
        }
    }
    for (int row = Count() - 1; row >= 0; --row) {
        Node& node = nodes[static_cast<std::size_t>(row)];
        node.end = node.children.empty() ? row + 1 : At(node.children.back()).end;
    }
}

int PositionTree::Find(const CStringArray& path) const
{
    if (nodes.empty() || path.IsEmpty()) return none;
    int found = none;
    int from = 0;
    int end = Count();
    for (const CString& title : path) {
        found = FindTitle(title, from, end);
        if (found == none) return none;
        from = found + 1;
        end = At(found).parent == none ? Count() : At(At(found).parent).end;
    }
    return found;
}

int PositionTree::FindTitle(const CString& title, int from, int end) const
{
    const auto known = rows.find(title);
    if (known == rows.end()) return none;
    const auto row = std::lower_bound(known->second.begin(), known->second.end(), from);
    return row == known->second.end() || *row >= end ? none : *row;
}
