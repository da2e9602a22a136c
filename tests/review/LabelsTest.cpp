#include "review/LabelRules.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

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

TEST(Labels, TellCheckedFromUnchecked)
{
    for (unsigned int mask = 0; mask < 64; ++mask) {
        ToviPhoto photo;
        for (unsigned int slot = 0; slot < labelCount; ++slot) {
            if (mask >> slot & 1) photo.PasteLabel(slot);
        }
        EXPECT_EQ(photo.IsOK(), (mask & 1) != 0) << mask;
        EXPECT_EQ(photo.HasNGLabel(), (mask & 0b1110) != 0) << mask;
        EXPECT_EQ(photo.IsNotCheck(), (mask & 0b1111) == 0) << mask;
        photo.SetComment("残る");
        ToviPhoto copy(photo);
        photo.CorrectAllNotCheck();
        EXPECT_EQ(photo.IsLabelPasted(LabelFree), (mask >> 5 & 1) != 0);
        EXPECT_TRUE(photo.IsNotCheck());
        copy.CorrectAllOK();
        EXPECT_TRUE(copy.IsOK() && !copy.HasNGLabel());
        EXPECT_EQ(copy.GetComment(), "残る");
        copy.RemoveAllLabel();
        EXPECT_EQ(Shown(copy), "");
    }
}

TEST(Labels, IgnoreSlotsThatDoNotExist)
{
    ToviPhoto photo;
    photo.PasteLabel(6);
    photo.PasteLabel(4000000000u);
    EXPECT_FALSE(photo.IsLabelPasted(6));
    EXPECT_EQ(Shown(photo), "");
}

TEST(LabelRules, KeepOkAndNgApartAndTheCommentWithItsLabel)
{
    const struct
    {
        const char* before;
        const char* comment;
        const char* step;
        const char* after;
    } cases[] = {
        {"", "", "+0", "0"},
        {"123", "", "+0", "0"},
        {"0", "", "+2", "2"},
        {"13", "", "+2", "123"},
        {"05", "", "+1", "15"},
        {"0", "", "+3", "3"},
        {"0", "", "+5", "05"},
        {"", "", "+4", ""},
        {"", "後で", "+4", "4\"後で\""},
        {"4", "後で", "-4", ""},
        {"04", "後で", "-0", "4\"後で\""},
        {"", "", "c直す", "4\"直す\""},
        {"4", "後で", "c", ""},
        {"4", "後で", "c 　 ", ""},
        {"0", "", "c　直す ", "04\"　直す \""},
    };
    for (const auto& c : cases) {
        ToviPhoto photo;
        for (const char* slot = c.before; *slot != '\0'; ++slot) {
            photo.PasteLabel(static_cast<unsigned int>(*slot - '0'));
        }
        photo.SetComment(c.comment);
        const auto slot = static_cast<unsigned int>(c.step[1] - '0');
        if (c.step[0] == '+') LabelRules::Paste(photo, slot);
        if (c.step[0] == '-') LabelRules::Remove(photo, slot);
        if (c.step[0] == 'c') LabelRules::EditComment(photo, c.step + 1);
        EXPECT_EQ(Shown(photo), c.after) << c.before << c.comment << c.step;
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
    host.profile.WriteProfileString("Label", "Label4", "_未定義_");
    {
        ToviLabelManager manager;
        manager.Load(nullptr);
        const char* const names[] = {"OK", "要確認", "誤記", "不鮮明", "コメント", "印刷"};
        for (unsigned long slot = 0; slot < labelCount; ++slot) {
            EXPECT_STREQ(manager.GetLabelAttribute(slot).GetName(), names[slot]);
        }
        EXPECT_EQ(manager.GetLabelAttribute(1).GetColor(), 0xFF0000u);
        ToviLabelManager edited;
        edited.GetLabelAttribute(LabelFree).SetName("再撮影");
        manager = edited;
    }
    EXPECT_EQ(host.profile.GetProfileString("Label", "Label6", "?"), "再撮影");
    EXPECT_EQ(host.profile.GetProfileString("Label", "Label2", "?"), "追記");
}

DeliveryBuilder Photos(int count)
{
    DeliveryBuilder builder({.photos = count, .drawings = 0, .images = false});
    for (int i = 0; i < count; ++i) builder.Set(i, "撮影箇所", i == 2 ? "B" : "A");
    return builder;
}

TEST(DocumentLabels, CollectCountAndSelect)
{
    OpenedSample sample(Photos(4));
    ToviData& document = *sample.document;
    EXPECT_EQ(document.IsLabeled(), 0);
    sample.Photo(3).PasteLabel(LabelNg1);
    sample.Photo(1).PasteLabel(LabelNg1);
    sample.Photo(0).SetComment("付箋なし");
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
    document.UpdatePhotoInf(nullptr);
    EXPECT_EQ(sample.host.hints.back(), ToviData::HintPhotoInfoChanged);
}

TEST(BatchCorrection, AsksTwiceAndCorrectsWhatIsShown)
{
    const struct
    {
        int action;
        const char* shown;
        const char* hidden;
    } cases[] = {{0, "05 15 05 ", "25"}, {1, "5 5 5 ", "25"}, {2, "   ", "25"}};
    for (const auto& c : cases) {
        OpenedSample sample(Photos(4));
        ToviData& document = *sample.document;
        for (int i = 0; i < 4; ++i) sample.Photo(i).PasteLabel(LabelFree);
        sample.Photo(1).PasteLabel(LabelNg1);
        sample.Photo(2).PasteLabel(LabelNg2);
        sample.Photo(3).PasteLabel(LabelOk);
        document.BuildTreeNode(ToviPhotoCtrlVisualSetting::TreePlace);
        document.SetSelected(document.ToviNode::GetNode(0), false);
        sample.host.hints.clear();

        EXPECT_FALSE(document.AllLabelCorrection());
        sample.services.user.options = {c.action};
        EXPECT_FALSE(document.AllLabelCorrection());
        EXPECT_FALSE(document.IsCheckStatusChanged());
        EXPECT_TRUE(sample.host.hints.empty());

        sample.services.user.options = {c.action};
        sample.services.user.answers = {MessageAnswer::Ok};
        EXPECT_TRUE(document.AllLabelCorrection());
        EXPECT_TRUE(document.IsCheckStatusChanged());
        EXPECT_EQ(sample.host.hints, std::vector<int>{ToviData::HintLabelsChanged});
        EXPECT_EQ(Shown(sample.Photo(0)) + " " + Shown(sample.Photo(1)) + " " +
                      Shown(sample.Photo(3)) + " ",
                  c.shown);
        EXPECT_EQ(Shown(sample.Photo(2)), c.hidden);
        const auto& calls = sample.services.user.calls;
        EXPECT_EQ(calls.back().text, "付箋の一括訂正・削除処理を実行します。よろしいですか？");
        EXPECT_EQ(calls.back().buttons, MessageButtons::OkCancel);
        EXPECT_EQ(calls.back().icon, MessageIcon::Question);
        EXPECT_EQ(sample.services.user.choice.title, "付箋の一括訂正・削除");
        EXPECT_EQ(sample.services.user.choice.options[1].text,
                  "OK・NG付箋を削除し未検査状態にする。");
    }
}

TEST(BatchCorrection, TellsOfAnEmptyArray)
{
    for (const auto& [action, outcome] : {std::pair{0, false}, {1, false}, {2, true}}) {
        OpenedSample sample(Photos(1));
        sample.document->SetSelected(-1);
        sample.host.hints.clear();
        sample.services.user.options = {action};
        sample.services.user.answers = {MessageAnswer::Ok};
        EXPECT_EQ(sample.document->AllLabelCorrection(), outcome);
        EXPECT_TRUE(sample.document->IsCheckStatusChanged());
        EXPECT_EQ(sample.host.hints.size(), 1u);
    }
}
} // namespace
