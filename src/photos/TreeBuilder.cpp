#include "photos/TreeBuilder.h"

#include "items/ToviItemDef.h"

#include <algorithm>

TreeBuilder::TreeBuilder(ToviNode& rootNode) : root(rootNode)
{
    root.RemoveAllItems();
}

void TreeBuilder::BuildByWorkType(ToviItemDef& def, const ToviPhotoArray& photos,
                                  std::span<const char* const> titles)
{
    CArray<int> levels;
    for (const char* title : titles) {
        if (const int index = def.GetIndexFromTitle(title); index != -1) levels.Add(index);
    }
    CStringArray values;
    for (int index = 0; index < photos.GetSize(); ++index) {
        photos[index]->GetTitleFromIndex(levels, values);
        Hang(index, values);
    }
}

void TreeBuilder::BuildByPlace(ToviItemDef& def, const ToviPhotoArray& photos, const char* title)
{
    const int level = def.GetIndexFromTitle(title);
    if (level == -1) return;
    CStringArray values;
    for (int index = 0; index < photos.GetSize(); ++index) {
        photos[index]->GetTitleFromIndex(CArray<int>{level}, values);
        if (values.IsEmpty()) continue;
        const CString& place = values[0];
        ChildOf(&root, place.empty() ? missingValueTitle : place)->AddIndex(index);
    }
}

ToviNode* TreeBuilder::ChildOf(ToviNode* node, const CString& title)
{
    ToviNode*& child = nodes[{node, title}];
    if (child == nullptr) {
        child = new ToviNode(title.c_str());
        node->Add(child);
    }
    return child;
}

void TreeBuilder::Hang(int photoIndex, const CStringArray& values)
{
    if (values.IsEmpty()) return;
    const auto isEmpty = [](const CString& value) { return value.empty(); };
    ToviNode* node = &root;
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (std::all_of(value, values.end(), isEmpty)) break;
        node = ChildOf(node, value->empty() ? missingValueTitle : *value);
    }
    node->AddIndex(photoIndex);
}
