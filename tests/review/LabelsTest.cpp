#include "support/Labels.h"
#include "inspection/ReviewCounts.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "review/LabelCorrection.h"
#include "review/LabelEdits.h"
#include "review/LabelRules.h"
#include "review/ToviLabelManager.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{
CString Shown(const ToviPhoto& photo)
{
    CString text;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (photo.IsLabelPasted(slot)) text += std::to_string(slot);
    }
    return text + (photo.GetComment().empty() ? "" : "\"" + photo.GetComment() + "\"");
}

/// True where \p Change compiles for anybody.
template <class Change>
constexpr bool isOpenToAll = std::is_invocable_v<Change, ToviPhoto&>;
static_assert(!isOpenToAll<decltype([](auto& photo) -> decltype(photo.PasteLabel(0u)) {})>);
static_assert(!isOpenToAll<decltype([](auto& photo) -> decltype(photo.RemoveLabel(0u)) {})>);
static_assert(!isOpenToAll<decltype([](auto& photo) -> decltype(photo.SetComment("")) {})>);

DeliveryBuilder Photos(int count)
{
    DeliveryBuilder builder({.photos = count, .drawings = 0, .images = false});
    for (int i = 0; i < count; ++i) builder.Set(i, "撮影箇所", i == 2 ? "B" : "A");
    return builder;
}

/// A delivery whose labels somebody changes at random.
struct RandomEdits
{
    int Below(int end) { return std::uniform_int_distribution(0, end - 1)(random); }

    LabelEdits::Rule AnyRule()
    {
        const auto slot = static_cast<unsigned int>(Below(labelCount + 1));
        const CString text = std::array{"", " 　", "直す", "　後で "}[Below(4)];
        const LabelEdits::Rule rules[] = {
            [slot](PhotoReview& review) { LabelRules::Paste(review, slot); },
            [slot](PhotoReview& review) { LabelRules::Remove(review, slot); },
            [text](PhotoReview& review) { LabelRules::EditComment(review, text); },
            LabelRules::CorrectUnlessNG,
            LabelRules::CorrectAllNotCheck,
            LabelRules::RemoveAllLabel};
        // Few that take all away.
        return rules[Below(12) < 9 ? Below(3) : Below(6)];
    }

    LabelEdit AnyEdit()
    {
        const auto kind = static_cast<LabelEdit::Kind>(Below(LabelEdit::RecordLoad + 1));
        std::vector<int> photos = {Below(count)};
        while (kind != LabelEdit::OnePhoto && photos.size() < 5) photos.push_back(Below(count));
        std::ranges::sort(photos);
        photos.erase(std::ranges::unique(photos).begin(), photos.end());
        return edits.Make(kind, photos, AnyRule());
    }

    /// What is told of an edit: a hint for each kind, and nothing of what is loaded.
    void Apply(const LabelEdit& edit)
    {
        sample.host.hints.clear();
        document.SetCheckStatusChanged(false);
        edits.Apply(edit);
        const std::vector<int> hints[] = {{5}, {6}, {6}, {}};
        EXPECT_EQ(sample.host.hints, hints[edit.kind]);
        EXPECT_EQ(document.IsCheckStatusChanged(), edit.kind != LabelEdit::RecordLoad);
    }

    void ExpectOrder() const
    {
        std::array<int, labelCount> labels{};
        ReviewCounts counts = {.shown = document.GetCurrentPhotoCount(), .all = count};
        for (const ToviPhoto* photo : *document.GetPhotoDataArray()) {
            for (unsigned int slot = 0; slot < labelCount; ++slot) {
                labels[slot] += photo->IsLabelPasted(slot);
            }
            counts.ok += photo->IsLabelPasted(0);
            counts.ng +=
                photo->IsLabelPasted(1) || photo->IsLabelPasted(2) || photo->IsLabelPasted(3);
            EXPECT_FALSE(photo->IsOK() && photo->HasNGLabel());
            EXPECT_EQ(photo->IsLabelPasted(LabelComment), !photo->GetComment().empty());
        }
        counts.unchecked = count - counts.ok - counts.ng;
        EXPECT_EQ(CountReview(document), counts);
        for (unsigned int slot = 0; slot < labelCount; ++slot) {
            EXPECT_EQ(document.CountLabel(slot), labels[slot]) << slot;
        }
    }

    static constexpr int count = 12;
    std::mt19937 random{47};
    OpenedSample sample{Photos(count)};
    ToviData& document = *sample.document;
    LabelEdits& edits = document.GetLabelEdits();
};

TEST(LabelEdits, KeepOrderThroughAThousandAndLeadBackAgain)
{
    RandomEdits by;
    for (int i = 0; i < 50; ++i) by.Apply(by.AnyEdit());
    const PhotoReviews start = by.document.GetReviews();
    std::vector<LabelEdit> done;
    for (int i = 0; i < 1000 && !testing::Test::HasFailure(); ++i) {
        done.push_back(by.AnyEdit());
        by.Apply(done.back());
        by.ExpectOrder();
    }
    EXPECT_NE(by.document.GetReviews(), start);
    for (; !done.empty() && !testing::Test::HasFailure(); done.pop_back()) {
        for (auto& change : done.back().changes) std::swap(change.before, change.after);
        by.Apply(done.back());
        by.ExpectOrder();
    }
    EXPECT_EQ(by.document.GetReviews(), start);
}

TEST(LabelRules, LeaveWhatIsNotTheirs)
{
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"1235", "", "+0", "05"},
        {"013", "", "+2", "123"},
        {"0", "", "+5", "05"},
        {"", "", "+4", ""},
        {"", "後で", "+4", "4\"後で\""},
        {"04", "後で", "-0", "4\"後で\""},
        {"04", "後で", "-4", "0"},
        {"4", "後で", "c 　 ", ""},
        {"0", "", "c　直す ", "04\"　直す \""},
        {"5", "", "+6", "5"},
    };
    OpenedSample sample(Photos(1));
    for (const auto& [before, comment, step, after] : cases) {
        PhotoReview review;
        for (const char slot : CString(before)) {
            review.labels.set(static_cast<std::size_t>(slot - '0'));
        }
        review.comment = comment;
        const auto slot = static_cast<unsigned int>(step[1] - '0');
        if (step[0] == '+') LabelRules::Paste(review, slot);
        if (step[0] == '-') LabelRules::Remove(review, slot);
        if (step[0] == 'c') LabelRules::EditComment(review, step + 1);
        Review(*sample.document, 0, [&](PhotoReview& photo) { photo = review; });
        EXPECT_EQ(Shown(sample.Photo(0)), after) << before << comment << step;
    }
}

TEST(LabelManager, KeepsItsNamesInTheProfile)
{
    TestHost host;
    {
        ToviLabelManager fresh;
        ToviLabelManager copy(fresh);
        copy.GetLabelAttribute(LabelFree).SetName("写し");
    }
    EXPECT_EQ(host.profile.GetProfileString("Label", "Label1", "?"), "?")
        << "what was never loaded has nothing to save";
    host.profile.WriteProfileString("Label", "Label2", "要確認");
    host.profile.WriteProfileString("Label", "Label3", "");
    {
        ToviLabelManager manager;
        manager.Load(nullptr);
        EXPECT_STREQ(manager.GetLabelAttribute(LabelNg1).GetName(), "要確認");
        EXPECT_STREQ(manager.GetLabelAttribute(LabelNg2).GetName(), "誤記");
        ToviLabelManager edited;
        edited.GetLabelAttribute(LabelFree).SetName("再撮影");
        manager = edited;
    }
    EXPECT_EQ(host.profile.GetProfileString("Label", "Label6", "?"), "再撮影");
    EXPECT_EQ(host.profile.GetProfileString("Label", "Label2", "?"), "追記");
}

TEST(DocumentLabels, CollectCountAndSelect)
{
    OpenedSample sample(Photos(4));
    ToviData& document = *sample.document;
    EXPECT_EQ(document.IsLabeled(), 0);
    PasteLabel(*sample.document, 3, LabelNg1);
    PasteLabel(*sample.document, 1, LabelNg1);
    SetComment(*sample.document, 0, "付箋なし");
    EXPECT_EQ(document.IsLabeled(), 1);
    EXPECT_EQ(document.CountLabel(LabelNg1), 2);
    ToviPhotoRef found;
    found.Add(9);
    EXPECT_EQ(document.CollectionLabel(LabelNg1, found), 2);
    EXPECT_EQ(found[0], 1);

    sample.host.hints.clear();
    document.SetSelected(static_cast<int>(LabelNg1));
    EXPECT_EQ(document.GetCurrentPhotoCount(), 2);
    EXPECT_EQ(document.GetSelectedIndex(), 1);
    EXPECT_FALSE(document.HasComment()) << "only the current array counts";
    document.SetSelected(-1);
    EXPECT_TRUE(document.IsPhotoArrayEmpty());
    EXPECT_EQ(sample.host.hints,
              (std::vector<int>{ToviData::HintSelectionChanged, ToviData::HintSelectionChanged}));
    EXPECT_FALSE(document.HasComment()) << "an empty array changes nothing";
    document.SetSelected(&document, true);
    EXPECT_TRUE(document.HasComment());
    PasteLabel(document, 3, LabelOk);
    EXPECT_EQ(CountReview(document).unchecked, 2) << "OK and NG, as a hand can write them";
}

TEST(BatchCorrection, AsksTwiceAndCorrectsWhatIsShown)
{
    const std::tuple<int, const char*, const char*> cases[] = {
        {0, "05 15 05 ", "25"}, {1, "5 5 5 ", "25"}, {2, "   ", "25"}};
    for (const auto& [action, shown, hidden] : cases) {
        OpenedSample sample(Photos(4));
        ToviData& document = *sample.document;
        for (int i = 0; i < 4; ++i) PasteLabel(*sample.document, i, LabelFree);
        PasteLabel(*sample.document, 1, LabelNg1);
        PasteLabel(*sample.document, 2, LabelNg2);
        PasteLabel(*sample.document, 3, LabelOk);
        document.BuildTreeNode(ToviPhotoCtrlVisualSetting::TreePlace);
        document.SetSelected(document.ToviNode::GetNode(0), false);
        sample.host.hints.clear();

        EXPECT_FALSE(document.AllLabelCorrection());
        sample.services.user.options = {action};
        EXPECT_FALSE(document.AllLabelCorrection());
        EXPECT_FALSE(document.IsCheckStatusChanged());
        EXPECT_TRUE(sample.host.hints.empty());

        sample.services.user.options = {action};
        sample.services.user.answers = {MessageAnswer::Ok};
        EXPECT_TRUE(document.AllLabelCorrection());
        EXPECT_TRUE(document.IsCheckStatusChanged());
        EXPECT_EQ(sample.host.hints, std::vector<int>{ToviData::HintLabelsChanged});
        EXPECT_EQ(Shown(sample.Photo(0)) + " " + Shown(sample.Photo(1)) + " " +
                      Shown(sample.Photo(3)) + " ",
                  shown);
        EXPECT_EQ(Shown(sample.Photo(2)), hidden);
        EXPECT_EQ(sample.services.user.calls.back().text,
                  "付箋の一括訂正・削除処理を実行します。よろしいですか？");
    }
}
TEST(BatchCorrection, TellsItsScopeAndConsequencesBefore)
{
    const CorrectionScope scope{.photos = 2765, .ng = 3, .ok = 210, .marked = 1220};
    EXPECT_EQ(PasteOkConsequence(scope),
              "対象 2,765枚、うち 2,552枚に新しくOKを貼ります。NGの 3枚は変更しません。");
    EXPECT_EQ(RemoveChecksConsequence(scope),
              "対象 2,765枚、うち 213枚（OK 210枚、NG 3枚）が未検査に戻ります。");
    EXPECT_EQ(RemoveAllConsequence(scope),
              "対象 2,765枚、うち 1,220枚の付箋とコメントが消えます。");

    OpenedSample sample(Photos(5));
    PasteLabel(*sample.document, 0, LabelOk);
    PasteLabel(*sample.document, 1, LabelOk);
    PasteLabel(*sample.document, 1, LabelNg1);
    SetComment(*sample.document, 2, "確認");
    const int shown[] = {0, 1, 2, 3};
    EXPECT_EQ(ScopeOf(*sample.document->GetPhotoDataArray(), shown),
              (CorrectionScope{.photos = 4, .ng = 1, .ok = 1, .marked = 3}));
}
} // namespace
