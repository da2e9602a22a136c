#include "inspection/RecordProblems.h"
#include "photos/ToviPhoto.h"
#include "platform/files/DiskSpace.h"
#include "platform/text/Cp932.h"
#include "review/PhotoReview.h"
#include "review/RecordTags.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "work/Environment.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace
{
constexpr std::uint64_t plenty = std::uint64_t{1} << 40;

/// A delivery with its work folder beside it, and plenty of space.
class Record : public testing::Test
{
protected:
    Record() : sample(DeliveryBuilder({.photos = 3, .drawings = 0, .images = false}))
    {
        // The folder above the photographs is the delivery's only with an index.
        std::filesystem::remove(sample.temp.Path("INDEX_C.XML"));
        const CString work = sample.temp.MakeFolder("work");
        SetEnvironment({Registry(sample.temp.Path("user.ini"), sample.temp.Path("machine.ini")),
                        {"", work, work, work, work},
                        {}});
        SetFreeSpaceQuery([](const CString&) { return plenty; });
    }
    ~Record() override { SetFreeSpaceQuery({}); }

    bool Save(const CString& name = "r.xml")
    {
        return document.SaveExamination(sample.temp.Path(name).c_str(), "note", &reason);
    }
    bool Load(const CString& name = "r.xml")
    {
        return document.LoadExamination(sample.temp.Path(name).c_str(), &reason);
    }

    CString State(int index) const
    {
        CString text;
        for (unsigned int slot = 0; slot < labelCount; ++slot) {
            text += sample.Photo(index).IsLabelPasted(slot) ? '1' : '0';
        }
        return text + sample.Photo(index).GetComment();
    }

    void WriteRecord(const CString& inside, const CString& count = "3")
    {
        sample.temp.Write(
            "r.xml",
            Cp932::EncodeForXml(
                "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<検査状況><情報><写真枚数>" +
                count + "</写真枚数></情報>" + inside + "</検査状況>"));
    }

    OpenedSample sample;
    ToviData& document = *sample.document;
    int reason = -1;
};

TEST_F(Record, HoldsWhatItsFormatSays)
{
    PasteLabel(*sample.document, 0, LabelOk);
    SetComment(*sample.document, 0, "<①>");
    ASSERT_TRUE(Save());
    const CString expected =
        "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n"
        "<!DOCTYPE examinationdata SYSTEM \"\">\n"
        "<検査状況>\n\t<情報>\n\t\t<写真枚数>3</写真枚数>\n\t</情報>\n\t<状況>\n"
        "\t\t<写真>\n\t\t\t<コメント>&lt;&#9312;&gt;</コメント>\n\t\t\t<付箋1-OK>1</付箋1-OK>\n";
    const CString record = *Cp932::Decode(sample.temp.Read("r.xml"));
    EXPECT_TRUE(record.starts_with(expected));
    EXPECT_THAT(record, testing::ContainsRegex("</検査状況>\n"
                                               "<\\?tovi-delivery names=\"[0-9a-f]{32}\" "
                                               "sizes=\"- - -\"\\?>\n$"));
    EXPECT_EQ(sample.temp.Read("r.xml").find(Cp932::EncodeForXml("写真ファイルパス")),
              CString::npos);

    document.SetCheckStatusChanged(true);
    document.ReturnExam(sample.temp.Path("paths.xml").c_str());
    EXPECT_TRUE(document.IsCheckStatusChanged());
    EXPECT_NE(sample.temp.Read("paths.xml").find("PIC/P0000"), CString::npos);
    RemoveAllLabel(*sample.document, 0);
    EXPECT_TRUE(Load("paths.xml"));
    EXPECT_EQ(State(0), "100000<①>");
}

TEST_F(Record, GivesBackEveryCommentAndLabel)
{
    const CString comments[] = {"<&>\"'",
                                "一\r\n二\n三\r四",
                                "　全角　",
                                " 半角 ",
                                " ",
                                "\n",
                                "①～－㈱髙",
                                "𠮷野家で𠮟る",
                                "\tタブ",
                                "]]>&amp;&#65;",
                                CString(5000, 'x'),
                                "é"};
    for (const CString& comment : comments) {
        SetComment(*sample.document, 1, comment);
        PasteLabel(*sample.document, 1, LabelNg2);
        PasteLabel(*sample.document, 2, LabelFree);
        document.SetCheckStatusChanged(true);
        ASSERT_TRUE(Save());
        EXPECT_FALSE(document.IsCheckStatusChanged());
        // What the record doesn't have goes.
        for (int i = 0; i < 3; ++i) {
            Review(*sample.document, i, [](PhotoReview& review) {
                review = {LabelSet().set(), "消える"};
            });
        }
        ASSERT_TRUE(Load());
        EXPECT_EQ(State(0), "000000");
        EXPECT_EQ(State(1), "001000" + comment);
        EXPECT_EQ(State(2), "000001");
    }
    SetComment(*sample.document, 0, CString("使えない\x01文字"));
    ASSERT_TRUE(Save());
    ASSERT_TRUE(Load());
    EXPECT_EQ(State(0), "000000使えない〓文字");
}

TEST_F(Record, ReadsWhatAHandHasWritten)
{
    SetComment(*sample.document, 0, "前の");
    PasteLabel(*sample.document, 0, LabelNg3);
    SetComment(*sample.document, 2, "前の");
    WriteRecord(
        "<状況>"
        "<写真><付箋6-任意>1</付箋6-任意><知らない>1</知らない><付箋1-OK>1</付箋1-OK></写真>"
        "<写真><コメント>&#x9AD9;&#134071;</コメント><付箋2-NG1>2</付箋2-NG1><付箋3-NG2></"
        "付箋3-NG2></写真>"
        "<!-- c "
        "--><写真><コメント></コメント><写真ファイルパス>x</写真ファイルパス></写真></状況>");
    ASSERT_TRUE(Load());
    EXPECT_EQ(State(0), "100101前の") << "what the record lacks stays";
    EXPECT_EQ(State(1), "000000髙𠮷");
    EXPECT_EQ(State(2), "000000");
}

TEST_F(Record, RefusesWhatDoesNotFitAndChangesNothing)
{
    const CString photo = "<写真><コメント>新</コメント></写真>";
    const std::tuple<const char*, CString, CString, int> cases[] = {
        {"another number", "<状況>" + photo + "</状況>", "4", RecordCountDiffers},
        {"no number", "<状況>" + photo + "</状況>", "三", RecordCountDiffers},
        {"no states", "", "3", RecordNoStates},
        {"empty states", "<状況/>", "3", RecordNoStates},
        {"too few entries", "<状況>" + photo + photo + "</状況>", "3", RecordCountDiffers},
        {"an entry that is none", "<状況>" + photo + photo + "<写真枚数/></状況>", "3",
         RecordCountDiffers},
    };
    for (const auto& [what, inside, count, expected] : cases) {
        WriteRecord(inside, count);
        reason = -1;
        EXPECT_FALSE(Load()) << what;
        EXPECT_EQ(reason, expected) << what;
        EXPECT_EQ(State(0), "000000") << what;
    }
    for (const char* bytes : {"", "<検査状況>", "\x81"}) {
        sample.temp.Write("r.xml", bytes);
        EXPECT_FALSE(Load());
        EXPECT_EQ(reason, RecordCountDiffers);
    }
}

/// A delivery in a folder of its own, of which photograph n has a file of sizes[n] bytes; -1 for
/// none.
std::unique_ptr<ToviData> Open(OpenedSample& sample, const CString& name,
                               const DeliveryBuilder& builder, const std::vector<int>& sizes)
{
    builder.Write(sample.temp.Path(name));
    ToviEnouDataFactory factory;
    std::unique_ptr<ToviData> document(factory.Create(
        &sample.host, sample.temp.Path(name + "/PHOTO").c_str(), PhotoXMLMlit, nullptr, nullptr));
    for (int i = 0; i < static_cast<int>(sizes.size()); ++i) {
        const int size = sizes[static_cast<std::size_t>(i)];
        if (size < 0) continue;
        std::ofstream(document->GetPhotoActualPhotoArray(i)->GetImagePath())
            << CString(static_cast<std::size_t>(size), 'x');
    }
    return document;
}

TEST_F(Record, TellsTheRecordOfAnotherDelivery)
{
    const DeliveryBuilder builder({.photos = 3, .drawings = 0, .images = false});
    const auto with = [&builder](std::string_view title, const CString& value) {
        return DeliveryBuilder(builder).Set(2, title, value);
    };
    const std::tuple<const char*, DeliveryBuilder, std::vector<int>, std::vector<int>, const char*>
        cases[] = {
            {"the same", builder, {1, 2, 0}, {1, 2, 0}, ""},
            {"another letter case", with("写真ファイル名", "p0000003.svg"), {}, {}, ""},
            {"discs that weren't in", builder, {1, -1, -1}, {1, 2, 3}, ""},
            {"discs that aren't in", builder, {1, 2, 3}, {-1, -1, 3}, ""},
            {"another name",
             with("写真ファイル名", "P0000004.SVG"),
             {},
             {},
             "ファイル名かシリアル番号"},
            {"another number", with("シリアル番号", "4"), {1}, {1}, "ファイル名かシリアル番号"},
            {"another size", builder, {1, 2, -1}, {1, 3, 9}, "ファイル2個のうち1個"},
        };
    for (const auto& [what, loadedInto, savedSizes, loadedSizes, difference] : cases) {
        SCOPED_TRACE(what);
        const CString record = sample.temp.Path(CString(what) + ".xml");
        const auto saved = Open(sample, CString(what) + " saved", builder, savedSizes);
        PasteLabel(*saved, 0, LabelNg1);
        ASSERT_TRUE(saved->SaveExamination(record.c_str(), nullptr, &reason));
        const auto other = Open(sample, what, loadedInto, loadedSizes);
        const ToviPhoto& photo = *other->GetPhotoActualPhotoArray(0);
        reason = -1;
        const bool loaded = other->LoadExamination(record.c_str(), &reason);
        EXPECT_EQ(loaded, *difference == '\0');
        EXPECT_EQ(photo.IsLabelPasted(LabelNg1), loaded);
        if (loaded) continue;
        EXPECT_EQ(reason, RecordOtherDelivery);
        EXPECT_THAT(WhyRecordNotLoaded(*other, record, reason), testing::HasSubstr(difference));
        EXPECT_TRUE(
            other->LoadExamination(record.c_str(), &reason, ToviData::RecordsOfAnyDelivery));
        EXPECT_TRUE(photo.IsLabelPasted(LabelNg1));
    }
}

TEST_F(Record, LoadsWhatDoesNotSayOrTellWhoseItIs)
{
    ASSERT_TRUE(Save());
    const CString record = sample.temp.Read("r.xml");
    const CString element = record.substr(0, record.find("<?tovi-delivery"));
    for (const char* behind :
         {"", "<?tovi-delivery?>", "<?tovi-delivery names=?>", "<?tovi-delivery sizes=\"x  9\"?>",
          "<?other names=\"0\"?>", "<!-- <?tovi-delivery names=\"0\"?> -->"}) {
        sample.temp.Write("r.xml", element + behind);
        EXPECT_TRUE(Load()) << behind;
    }
    sample.temp.Write("r.xml", element + "<?tovi-delivery names=\"0\"?>");
    EXPECT_FALSE(Load());
}

TEST_F(Record, EndsOnHostileFiles)
{
    const auto repeated = [](const CString& text, int times) {
        CString all;
        for (int i = 0; i < times; ++i) all += text;
        return all;
    };
    const std::tuple<const char*, CString, CString> cases[] = {
        {"a million photographs too many",
         "<状況>" + repeated("<写真><付箋1-OK>1</付箋1-OK></写真>", 300000) + "</状況>", "100000"},
        {"no children", "<状況><写真/><写真/><写真/></状況>", "000000"},
    };
    for (const auto& [what, inside, state] : cases) {
        for (int i = 0; i < 3; ++i) RemoveAllLabel(*sample.document, i);
        WriteRecord(inside);
        EXPECT_TRUE(Load()) << what;
        for (int i = 0; i < 3; ++i) EXPECT_EQ(State(i), state) << what;
    }
}

TEST_F(Record, SavesNothingWhereItMustNot)
{
    ASSERT_TRUE(Save());
    const CString old = sample.temp.Read("r.xml");
    SetComment(*sample.document, 0, "新しい");
    document.SetCheckStatusChanged(true);

    chmod(sample.temp.Path("r.xml").c_str(), 0444);
    SetFreeSpaceQuery([](const CString&) { return 0; });
    EXPECT_FALSE(Save());
    EXPECT_EQ(reason, RecordReadOnly) << "before any question of space";
    chmod(sample.temp.Path("r.xml").c_str(), 0644);

    const std::uint64_t needed = 500 + 300 * 3;
    CString asked;
    SetFreeSpaceQuery([&](const CString& folder) {
        asked = folder;
        return needed - old.size();
    });
    EXPECT_FALSE(Save());
    EXPECT_EQ(reason, RecordNoSpace);
    EXPECT_EQ(asked, sample.temp.Path());
    SetFreeSpaceQuery([&](const CString&) { return needed; });
    EXPECT_FALSE(Save("new.xml"));
    EXPECT_EQ(reason, RecordNoSpace);
    EXPECT_EQ(sample.temp.Read("r.xml"), old);
    EXPECT_TRUE(document.IsCheckStatusChanged());

    SetFreeSpaceQuery([&](const CString&) { return needed + 1; });
    EXPECT_TRUE(Save("new.xml"));
    SetFreeSpaceQuery([](const CString&) { return plenty; });
    EXPECT_FALSE(Save("missing/r.xml"));
    EXPECT_EQ(reason, RecordNotWritten);
    SetFreeSpaceQuery({});
    EXPECT_FALSE(Save("missing/r.xml"));
    EXPECT_EQ(reason, RecordNoSpace) << "a volume that can't be asked has no space";
}

TEST_F(Record, LeavesTheFileWhenTheSavingIsCancelled)
{
    ASSERT_TRUE(Save());
    const CString old = sample.temp.Read("r.xml");
    document.SetCheckStatusChanged(true);
    SetComment(*sample.document, 0, "新しい");
    int cancelled = 0;
    for (int pump = 1; pump < 12; ++pump) {
        sample.services.user.pumps = 0;
        sample.services.user.cancelAtPumps = {pump};
        if (Save()) {
            sample.temp.Write("r.xml", old);
            document.SetCheckStatusChanged(true);
            continue;
        }
        ++cancelled;
        EXPECT_EQ(reason, RecordCancelled) << pump;
        EXPECT_EQ(sample.temp.Read("r.xml"), old) << pump;
        EXPECT_TRUE(document.IsCheckStatusChanged()) << pump;
    }
    EXPECT_GE(cancelled, 3) << "at each of the photographs, the last one too";
}
} // namespace
