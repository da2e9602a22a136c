// The history of an inspection: what is kept, taken back and done again, in this run and the next.

#include "history/EditWords.h"
#include "history/InspectionHistory.h"
#include "platform/files/FileLock.h"
#include "review/LabelRules.h"
#include "support/OpenedSample.h"

#include <gmock/gmock.h>

#include <random>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int photoCount = 40;

/// A delivery whose inspection is kept in a file, and what a program that starts finds there.
class KeptInspection : public testing::Test
{
protected:
    ToviData& Data() const { return *sample.document; }

    /// Goes on with the inspection \p past.
    void GoOn(PastInspection past)
    {
        auto file = std::make_unique<HistoryFile>(path);
        file->Claim("test");
        history = std::make_unique<InspectionHistory>(
            Data(), std::move(past), HistoryPlace{path, "test", std::move(file), nullptr, true});
    }
    /// As a program that ends, and one that starts and goes on with the last inspection.
    void Restart()
    {
        const CString redo = history->RedoWords();
        history.reset();
        std::vector<PastInspection> kept = HistoryFile(path).Inspections(photoCount, 1);
        ASSERT_EQ(kept.size(), 1u);
        sample.Open(sample.temp.Path("PHOTO"));
        Data().GetLabelEdits().Apply(LabelEdits::Make(LabelEdit::RecordLoad, Data().GetReviews(),
                                                      ReviewsAfter(kept.front())));
        GoOn(std::move(kept.front()));
        EXPECT_EQ(history->RedoWords(), redo);
    }
    void Do(LabelEdit::Kind kind, std::vector<int> photos, const LabelEdits::Rule& rule) const
    {
        LabelEdits& edits = Data().GetLabelEdits();
        edits.Apply(edits.Make(kind, photos, rule));
    }
    /// The bytes of the record as it would be saved now.
    CString Record() const
    {
        int reason = 0;
        EXPECT_TRUE(Data().SaveExamination(records.Path("r.xml").c_str(), nullptr, &reason));
        return records.Read("r.xml");
    }

    OpenedSample sample{DeliveryBuilder({.photos = photoCount, .drawings = 0, .images = false})};
    TempFolder records;
    CString path = records.Path("state/h.sqlite3");
    std::unique_ptr<InspectionHistory> history;
};

/// Does something that an inspector does, at random.
LabelEdit RandomEdit(ToviData& data, std::mt19937& random)
{
    const auto below = [&random](int count) { return static_cast<int>(random() % count); };
    const bool isOne = below(4) != 0;
    std::vector<int> photos;
    for (int photo = below(photoCount); photo < photoCount; photo += 1 + below(9)) {
        photos.push_back(photo);
        if (isOne) break;
    }
    const unsigned int slot = static_cast<unsigned int>(below(8));
    const CString comment = Format("所見%d", below(3));
    const LabelEdit::Kind kinds[] = {LabelEdit::OnePhoto, LabelEdit::Batch, LabelEdit::RecordMerge,
                                     LabelEdit::RecordLoad};
    return data.GetLabelEdits().Make(isOne ? LabelEdit::OnePhoto : kinds[below(4)], photos,
                                     [&](PhotoReview& review) {
                                         if (slot < labelCount && review.labels[slot])
                                             return LabelRules::Remove(review, slot);
                                         if (slot == LabelComment)
                                             return LabelRules::EditComment(review, comment);
                                         if (slot >= labelCount)
                                             return LabelRules::RemoveAllLabel(review);
                                         LabelRules::Paste(review, slot);
                                     });
}

TEST_F(KeptInspection, GoesBackToTheStartByteForByte)
{
    GoOn(InspectionHistory::New(photoCount));
    std::mt19937 random(14);
    const CString start = Record();
    std::vector<PhotoReviews> states{Data().GetReviews()};
    for (int made = 0; made < 1000; ++made) {
        LabelEdit edit = RandomEdit(Data(), random);
        if (edit.changes.empty()) continue;
        Data().GetLabelEdits().Apply(std::move(edit));
        states.push_back(Data().GetReviews());
        for (int back = static_cast<int>(random() % 12) - 8; back > 0 && states.size() > 1;
             --back) {
            EXPECT_FALSE(history->Undo().empty());
            states.pop_back();
            ASSERT_TRUE(Data().GetReviews() == states.back());
        }
        if (random() % 50 == 0) Restart();
    }
    while (!history->Redo().empty()) {
        states.push_back(Data().GetReviews());
    }
    const CString end = Record();
    Restart();
    for (std::size_t at = states.size() - 1; at-- > 0;) {
        ASSERT_FALSE(history->Undo().empty());
        ASSERT_TRUE(Data().GetReviews() == states[at]) << at;
    }
    EXPECT_EQ(history->UndoWords(), "");
    EXPECT_THAT(history->Undo(), IsEmpty());
    EXPECT_FALSE(Data().IsCheckStatusChanged()) << "as it was at first";
    EXPECT_TRUE(Record() == start);
    Restart();
    while (!history->RedoWords().empty()) history->Redo();
    EXPECT_TRUE(Data().IsCheckStatusChanged());
    EXPECT_TRUE(Record() == end);
}

TEST_F(KeptInspection, KnowsWhetherAllIsSaved)
{
    GoOn(InspectionHistory::New(photoCount));
    const auto paste = [this](int photo) {
        Do(LabelEdit::OnePhoto, {photo}, [](PhotoReview& review) { review.labels.flip(LabelOk); });
    };
    const auto step = [this](const std::function<void()>& act) {
        act();
        return history->IsAsSaved();
    };
    EXPECT_FALSE(step([&] { paste(1); }));
    EXPECT_TRUE(step([&] { history->NoteRecord({"r.xml", "v", Data().GetReviews()}); }));
    EXPECT_FALSE(step([&] { history->Undo(); }));
    EXPECT_TRUE(step([&] { history->Redo(); }));
    Restart();
    EXPECT_TRUE(history->IsAsSaved());
    history->Undo();
    EXPECT_FALSE(step([&] { paste(2); })) << "as many steps, but others";
    EXPECT_FALSE(step([&] { Restart(); }));
}

TEST(History, TellsItsStepsInWords)
{
    const auto review = [](std::initializer_list<LabelSlot> slots, const char* comment = "") {
        PhotoReview made;
        for (const LabelSlot slot : slots) made.labels.set(slot);
        made.comment = comment;
        return made;
    };
    const struct
    {
        PhotoReview before;
        PhotoReview after;
        const char* words;
    } cases[] = {
        {{}, review({LabelNg2}), "NG2 を付ける（a）"},
        {review({LabelNg2, LabelNg3}), review({LabelOk}), "OK を付ける（a）"},
        {{}, review({LabelComment}, "深さ"), "コメントを書く（a）"},
        {review({LabelComment}, "深さ"), review({LabelComment}, "幅"), "コメントを直す（a）"},
        {review({LabelComment}, "深さ"), {}, "コメントを消す（a）"},
        {review({LabelNg1, LabelFree}), review({LabelFree}), "NG1 を外す（a）"},
        {review({LabelNg1}), {}, "NG1 を外す（a）"},
        {review({LabelNg1, LabelComment}, "深さ"), {}, "すべての付箋を外す（a）"},
    };
    for (const auto& [before, after, words] : cases) {
        LabelEdit edit(LabelEdit::OnePhoto);
        edit.changes = {{0, before, after}};
        EXPECT_EQ(EditWords(edit, "a"), words);
    }
    LabelEdit edit(LabelEdit::Batch);
    edit.changes = {{0, {}, review({LabelOk})}, {1, review({LabelNg1}), review({LabelOk})}};
    EXPECT_EQ(EditWords(edit, ""), "OK を付ける（2枚）");
    edit.kind = LabelEdit::RecordLoad;
    EXPECT_EQ(EditWords(edit, ""), "検査状況を読み込む（2枚）");
}

TEST(History, TakesNoDamagedStep)
{
    LabelChanges changes(3);
    changes[0].photo = 200;
    changes[1].photo = 3;
    changes[1].before.comment = changes[1].after.comment = CString(300, 'x');
    changes[2].photo = 4;
    changes[2].after.comment = "幅";
    changes[2].after.labels = 0x3f;
    const CString bytes = PackChanges(changes);
    const std::optional<LabelChanges> whole = UnpackChanges(bytes, 201);
    ASSERT_TRUE(whole);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        EXPECT_TRUE((*whole)[i].photo == changes[i].photo &&
                    (*whole)[i].before == changes[i].before &&
                    (*whole)[i].after == changes[i].after)
            << i;
    }
    EXPECT_FALSE(UnpackChanges(bytes, 200)) << "a photograph that isn't there";
    std::size_t cutAtAnEnd = 0;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        cutAtAnEnd += UnpackChanges(std::string_view(bytes).substr(0, size), 201).has_value();
    }
    EXPECT_EQ(cutAtAnEnd, 3u) << "between two changes, and of nothing";
    EXPECT_FALSE(UnpackChanges(CString(40, '\xff'), 201));
}
} // namespace
