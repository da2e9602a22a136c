#include "photos/ToviNode.h"
#include "photos/ToviPhotoRef.h"

#include <gtest/gtest.h>

namespace
{
CString Titles(ToviNode& node)
{
    CString titles;
    for (const ToviNode* child : node.Items()) titles += CString(child->Title()) + "|";
    return titles;
}

TEST(ToviNode, KeepsTheNodesForMissingValuesLast)
{
    ToviNode root("root");
    EXPECT_EQ(root.Add(new ToviNode("A")), 0);
    EXPECT_EQ(root.Add(new ToviNode("【未記入】")), 1);
    EXPECT_EQ(root.Add(new ToviNode("B")), 1);
    EXPECT_EQ(root.Add(new ToviNode("【未記入】")), 2);
    EXPECT_EQ(root.Add(new ToviNode("C")), 2);
    EXPECT_EQ(Titles(root), "A|B|C|【未記入】|【未記入】|");
    EXPECT_EQ(root.GetNode(2)->Parent(), &root);
    EXPECT_THROW(root.GetNode(5), InvalidArgument);
    EXPECT_THROW(root.GetNode(-1), InvalidArgument);
}

TEST(ToviNode, CopiesTheShapeAndNotThePhotographs)
{
    ToviNode root("root");
    ToviNode* a = new ToviNode("A");
    ToviNode* b = new ToviNode("B");
    root.Add(a);
    a->Add(b);
    b->AddIndex(7);
    root.AddIndex(1);
    ToviNode copy("old");
    copy.Add(new ToviNode("gone"));
    copy = root;
    ASSERT_EQ(copy.GetChildNodeCount(), 1);
    EXPECT_EQ(copy.GetNode(0)->Parent(), &copy);
    EXPECT_EQ(copy.GetNode(0)->GetNode(0)->GetImageCount(), 0);
    CArray<int> all{9};
    EXPECT_TRUE(root.GetAllUnder(all));
    EXPECT_EQ(all, (CArray<int>{9, 1, 7}));
    EXPECT_EQ(b->GetFullTitlePath("/"), "root/A/B/");
    copy = *copy.GetNode(0);
    EXPECT_STREQ(copy.GetNode(0)->Title(), "B") << "a node can take over a part of itself";
    root.RemoveAllItems();
    EXPECT_EQ(root.GetImageCount() + root.GetChildNodeCount(), 0);
}

TEST(ToviPhotoRef, IsAnOrderedSet)
{
    ToviPhotoRef shown;
    EXPECT_EQ(shown.Append(ToviPhotoRef()), -1);
    EXPECT_EQ(shown.Add(5), 0);
    EXPECT_EQ(shown.Add(3), 1);
    EXPECT_EQ(shown.Add(5), 0);
    ToviPhotoRef more;
    for (const int index : {3, 9, 5}) more.Add(index);
    EXPECT_EQ(shown.Append(more), 1);
    EXPECT_EQ(shown.GetSize(), 3);
    EXPECT_EQ(shown.Find(9), 2);
    EXPECT_EQ(shown.Find(4), -1);
    EXPECT_EQ(shown.Append(shown), 0);
    EXPECT_THROW(shown[3], InvalidArgument);
    shown.Assign({9, 5});
    EXPECT_EQ(shown.Find(5), 1);
    EXPECT_EQ(shown.Find(3), -1);
    EXPECT_EQ(shown.GetSize(), 2);
}
} // namespace
