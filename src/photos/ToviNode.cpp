#include "photos/ToviNode.h"

#include <algorithm>

ToviNode::ToviNode(const ToviNode& other) : CObject(other)
{
    *this = other;
}

ToviNode::~ToviNode()
{
    for (ToviNode* child : children) delete child;
}

ToviNode* ToviNode::Clone() const
{
    return new ToviNode(*this);
}

void ToviNode::RemoveAllItems()
{
    for (ToviNode* child : children) {
        child->RemoveAllItems();
        delete child;
    }
    children.RemoveAll();
    indexes.RemoveAll();
}

const ToviNode& ToviNode::operator=(const ToviNode& other)
{
    if (this == &other) return *this;
    valid = other.valid;
    title = other.title;
    parent = nullptr;
    // The source may lie beneath the target, so the old children go last.
    ToviNodeArray copies;
    for (const ToviNode* child : other.children) {
        copies.Add(child->Clone());
        copies[copies.GetSize() - 1]->parent = this;
    }
    std::swap(children, copies);
    for (const ToviNode* child : copies) delete child;
    return *this;
}

const ToviNode& ToviNode::operator=(const char* text)
{
    Title(text);
    return *this;
}

const ToviNode& ToviNode::operator=(bool flag)
{
    Valid(flag);
    return *this;
}

ToviNode* ToviNode::Parent(ToviNode* node)
{
    return std::exchange(parent, node);
}

int ToviNode::Add(ToviNode* child)
{
    child->parent = this;
    // The nodes for missing values are the last ones, so the search from the back meets the first
    // of them without passing the others: a node may have as many children as there are
    // photographs.
    int position = children.GetSize();
    while (position > 0 && children[position - 1]->title == missingValueTitle) --position;
    children.InsertAt(position, child);
    return position;
}

bool ToviNode::HasData(int photoIndex) const
{
    return std::find(indexes.begin(), indexes.end(), photoIndex) != indexes.end();
}

unsigned long ToviNode::DescendantCount() const
{
    unsigned long count = static_cast<unsigned long>(children.GetSize());
    for (const ToviNode* child : children) count += child->DescendantCount();
    return count;
}

bool ToviNode::GetAllUnder(CArray<int>& out) const
{
    for (const int index : indexes) out.Add(index);
    for (const ToviNode* child : children) child->GetAllUnder(out);
    return !out.IsEmpty();
}

CString ToviNode::GetFullTitlePath(const char* separator) const
{
    CString path;
    for (const ToviNode* node = this; node != nullptr; node = node->parent) {
        if (!node->title.empty()) path = node->title + separator + path;
    }
    return path;
}

int ToviNode::Level() const
{
    int level = 0;
    for (const ToviNode* node = parent; node != nullptr; node = node->parent) ++level;
    return level;
}
