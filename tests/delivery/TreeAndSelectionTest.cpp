#include "support/OpenedSample.h"

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include <gtest/gtest.h>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;

CString Drawn(const ToviNode& node)
{
    CString text = node.Parent() == nullptr ? "" : node.Title();
    for (const int index : node.GetIndexes()) text += std::to_string(index);
    if (node.GetChildNodeCount() == 0) return text;
    text += "(";
    for (const ToviNode* child : node.Items()) text += Drawn(*child) + " ";
    text.back() = ')';
    return text;
}

/// A photograph for each row of 工種, 種別 and 細別; "-" leaves the element out.
OpenedSample Works(const std::vector<std::array<const char*, 3>>& rows)
{
    constexpr const char* titles[] = {"工種", "種別", "細別"};
    DeliveryBuilder builder(
        {.photos = static_cast<int>(rows.size()), .drawings = 0, .images = false});
    for (int photo = 0; photo < static_cast<int>(rows.size()); ++photo) {
        for (std::size_t level = 0; level < 3; ++level) {
            const CString value = rows[static_cast<std::size_t>(photo)][level];
            builder.Set(photo, titles[level], value == "-" ? "" : value);
        }
        builder.Set(photo, "写真-大分類", "工事").Set(photo, "写真区分", "施工状況写真");
    }
    return OpenedSample(builder);
}

TEST(Tree, HangsPhotographsByTheirWork)
{
    const OpenedSample sample = Works({{"A", "-", "-"},
                                       {"-", "B", "-"},
                                       {"A", "-", "C"},
                                       {"-", "-", "-"},
                                       {"A", "B", "C"},
                                       {"A", "B", "C"},
                                       {"D", "B", "-"}});
    ToviData& document = *sample.document;
    document.BuildTreeNode(Setting::TreeWorkType);
    EXPECT_EQ(Drawn(document), "3(A0(B(C45) 【未記入】(C2)) D(B6) 【未記入】(B1))");
    document.BuildTreeNode(Setting::TreeWorkTypeFull);
    EXPECT_EQ(Drawn(document),
              "(工事(施工状況写真3(A0(B(C45) 【未記入】(C2)) D(B6) 【未記入】(B1))))");
    EXPECT_EQ(document.NodeCount(), 11u);
}

TEST(Tree, HangsPhotographsByTheirPlace)
{
    DeliveryBuilder builder({.photos = 4, .drawings = 0, .images = false});
    builder.Set(0, "撮影箇所", "").Set(1, "撮影箇所", "No.1").Remove(2, "撮影情報");
    builder.Set(3, "撮影箇所", "No.1");
    const OpenedSample sample(builder);
    sample.document->BuildTreeNode(Setting::TreePlace);
    // Where the mandatory group is missing its elements are read as empty ones.
    EXPECT_EQ(Drawn(*sample.document), "(No.113 【未記入】02)");
}

TEST(Tree, HasNoPlaceForAPhotographWithoutAnyLevel)
{
    DeliveryBuilder builder({.section = "NEXCO-14", .photos = 2, .drawings = 0, .images = false});
    builder.Set(0, "撮影箇所", "No.1").Remove(1, "撮影情報");
    const OpenedSample sample(builder, PhotoXMLNexco);
    ToviData& document = *sample.document;
    document.BuildTreeNode(Setting::TreePlace);
    EXPECT_EQ(Drawn(document), "(No.10)");
    EXPECT_EQ(document.GetTotalCountPhoto(), 2);
    EXPECT_EQ(document.GetCurrentPhotoCount(), 1);
}

TEST(Tree, KeepsTheSelectedPhotographWhenItChanges)
{
    const OpenedSample sample = Works({{"A", "-", "-"}, {"B", "-", "-"}});
    ToviData& document = *sample.document;
    document.PhotoSelectSetting(1);
    document.BuildTreeNode(Setting::TreeWorkType);
    EXPECT_STREQ(document.GetSelectedNode()->Title(), "B");
    EXPECT_EQ(document.GetPhotoIndex(0), 1);
    EXPECT_EQ(document.GetCurrentPhotoCount(), 1);
}

TEST(Selection, FillsTheCurrentArrayAndTellsTheViews)
{
    OpenedSample sample = Works({{"A", "-", "-"}, {"B", "-", "-"}, {"A", "-", "-"}});
    ToviData& document = *sample.document;
    std::vector<int>& hints = sample.host.hints;
    document.BuildTreeNode(Setting::TreeWorkType);
    EXPECT_TRUE(hints.empty());
    EXPECT_EQ(document.GetSelectedNode(), &document);
    EXPECT_EQ(document.GetCurrentPhotoCount(), 3);
    EXPECT_EQ(document.GetPhotoIndex(1), 2) << "the order is that of the walk over the tree";

    ToviNode* const a = document.ToviNode::GetNode(0);
    EXPECT_EQ(document.SetSelected(a, false), &document);
    EXPECT_EQ(hints, std::vector<int>{ToviData::HintSelectionChanged});
    EXPECT_EQ(document.SetSelected(a, false), a);
    EXPECT_EQ(hints.size(), 1u);
    document.SetSelected(a, true);
    EXPECT_EQ(hints.size(), 2u);
    EXPECT_EQ(document.GetCurrentPhotoCount(), 2);

    EXPECT_TRUE(document.PhotoSelectSetting(0));
    hints.clear();
    EXPECT_FALSE(document.PhotoSelectSetting(-1));
    EXPECT_TRUE(document.PhotoSelectSetting(2));
    EXPECT_TRUE(sample.Photo(2).IsSelected());
    EXPECT_FALSE(sample.Photo(0).IsSelected()) << "one at a time";
    EXPECT_TRUE(document.PhotoSelectSetting(2));
    EXPECT_EQ(hints, std::vector<int>{ToviData::HintPhotoSelected});
    EXPECT_THROW(document.PhotoSelectSetting(3), InvalidArgument);
    EXPECT_EQ(document.GetSelectCurIndex(), 1);

    EXPECT_EQ(document.GetPhoto(2), nullptr);
    EXPECT_EQ(document.GetIndexPhotoArray(5), -1);
    EXPECT_THROW(document.GetPhotoIndex(5), InvalidArgument);
}

TEST(Selection, FallsBackOnTheRoot)
{
    OpenedSample sample = Works({{"A", "-", "-"}});
    ToviData& document = *sample.document;
    document.SetSelected();
    EXPECT_EQ(document.GetSelectedNode(), &document);
    EXPECT_EQ(document.GetSelectCurIndex(), 0);
    document.SetSelected();
    EXPECT_STREQ(document.GetSelectedNode()->Title(), "A");

    EXPECT_THROW(ToviData().SetSelected(), InvalidArgument);
}
} // namespace
