#pragma once

#include "platform/host/CObject.h"
#include "platform/text/CArray.h"
#include "platform/text/Text.h"

class ToviNode;

/// The title of a node that stands for a missing value.
inline constexpr const char* missingValueTitle = "【未記入】";

class TOVI_EXPORT ToviNodeArray : public CArray<ToviNode*>
{
public:
    ToviNodeArray() = default;
    ToviNodeArray(const ToviNodeArray&) = default;
    ToviNodeArray& operator=(const ToviNodeArray&) = default;
    virtual ~ToviNodeArray() = default;
};

/// One node of the classification tree. It owns its children and knows the photographs that belong
/// to itself by their photo indexes.
class TOVI_EXPORT ToviNode : public CObject
{
public:
    ToviNode() = default;
    explicit ToviNode(const char* text) : title(text) {}
    /// Copies the shape of the tree beneath, as the assignment does.
    ToviNode(const ToviNode& other);
    ~ToviNode() override;

    virtual ToviNode* Clone() const;
    /// Deletes all children at every depth and forgets the indexes; the title stays.
    virtual void RemoveAllItems();

    /// Copies flag, title and, deeply, the children. The indexes are not copied: a copy has the
    /// tree's shape and not its photographs. The parent becomes null.
    const ToviNode& operator=(const ToviNode& other);
    const ToviNode& operator=(const char* text);
    const ToviNode& operator=(bool flag);

    void Title(const char* text) { title = text; }
    const char* Title() const { return title.c_str(); }
    void Valid(bool flag) { valid = flag; }
    bool IsValid() const { return valid; }
    ToviNode* Parent() const { return parent; }
    /// Sets the parent and returns the one before.
    ToviNode* Parent(ToviNode* node);
    ToviNodeArray& Items() { return children; }
    const ToviNodeArray& Items() const { return children; }

    /// Takes over \p child behind the other children, but in front of those that stand for a
    /// missing value (missingValueTitle): once there, these stay last. Returns its position.
    int Add(ToviNode* child);
    /// Appends without looking for duplicates.
    void AddIndex(int photoIndex) { indexes.Add(photoIndex); }

    /// The child at \p position; outside the range throws InvalidArgument.
    ToviNode* GetNode(int position) { return children[position]; }
    int GetChildNodeCount() const { return children.GetSize(); }
    /// The number of this node's own indexes, without those beneath.
    int GetImageCount() const { return indexes.GetSize(); }
    const CArray<int>& GetIndexes() const { return indexes; }
    /// True when \p photoIndex is among this node's own indexes.
    bool HasData(int photoIndex) const;
    /// The number of all nodes beneath, at any depth.
    unsigned long DescendantCount() const;
    /// Appends this node's indexes and then those of each child, depth first. True when \p out
    /// isn't empty afterwards.
    bool GetAllUnder(CArray<int>& out) const;
    /// The non-empty titles from the root down to this node, \p separator behind each of them.
    CString GetFullTitlePath(const char* separator) const;
    /// The number of nodes above; 0 on the root.
    int Level() const;

private:
    ToviNode* parent = nullptr;
    ToviNodeArray children;
    bool valid = false;
    CString title;
    CArray<int> indexes;
};
