#include "windows/trees/NodeTally.h"
#include "photos/ToviNode.h"

#include <gtest/gtest.h>

namespace
{
using Tally = NodeTally::Tally;

TEST(NodeTally, KeepsWhatLabelsChange)
{
    ToviNode root("root");
    auto* const a = new ToviNode("a");
    auto* const b = new ToviNode("b");
    root.Add(a);
    a->Add(b);
    root.AddIndex(9);
    for (const int photo : {0, 1}) a->AddIndex(photo);
    for (const int photo : {2, 3, 4}) b->AddIndex(photo);
    NodeTally tally;
    tally.Count(root, [](int photo) { return photo % 2 == 0; });
    EXPECT_EQ(tally.Of(&root), (Tally{6, 3}));
    EXPECT_EQ(tally.Of(a), (Tally{5, 3}));
    EXPECT_EQ(tally.Of(b), (Tally{3, 2}));
    for (const bool unchecked : {false, false}) tally.Change(2, unchecked);
    tally.Change(1, true);
    tally.Change(77, true);
    EXPECT_EQ(tally.Of(&root), (Tally{6, 3}));
    EXPECT_EQ(tally.Of(a), (Tally{5, 3}));
    EXPECT_EQ(tally.Of(b), (Tally{3, 1}));
    tally.Clear();
    EXPECT_EQ(tally.Of(b), Tally());
}

TEST(NodeTally, IsToldWithoutWhatIsSaidAlready)
{
    EXPECT_EQ(TallyText({120, 8}, 7), "計 120、未検査 8");
    EXPECT_EQ(TallyText({7, 7}, 7), "未検査 7");
    EXPECT_EQ(TallyText({120, 0}, 0), "計 120、検査済");
    EXPECT_EQ(TallyText({}, 0), "");
}
} // namespace
