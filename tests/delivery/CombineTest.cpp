#include "delivery/MediaCombine.h"
#include "items/ToviItemDef.h"
#include "photos/DeliveryFiles.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/files/MibFile.h"
#include "support/DiskMount.h"
#include "support/OpenedSample.h"
#include "support/Texts.h"
#include "work/Environment.h"
#include "work/WorkFolder.h"

#include <gmock/gmock.h>

namespace
{
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* finished =
    "写真データの取込（コピー）が完了しました。\n『QV-フォトビューア』での閲覧を開始します。";
constexpr const char* copyFailed =
    "写真データの取込（コピー）に失敗しました。\nメディア単位での閲覧を行ってください。";

/// A delivery of six photographs on three discs, whose drive is of the kind that the test says.
class Combine : public testing::Test
{
protected:
    Combine() : before(GetEnvironment())
    {
        builder.Write(temp.Path("set"));
        const CString discs = temp.Path("set");
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.MakeFolder("documents"), "", "", temp.Path("cache")},
                        [this, discs](const CString& path) {
                            return path.starts_with(discs) ? kind : DriveType::Fixed;
                        }});
        Open(1);
    }
    ~Combine() override { SetEnvironment(before); }

    CString Disc(int number) const
    {
        return builder.DiscFolder(temp.Path("set"), number) + "/PHOTO";
    }

    void Open(int disc)
    {
        ToviEnouDataFactory creator;
        document.reset(creator.Create(nullptr, Disc(disc).c_str(), PhotoXMLMlit, nullptr, nullptr));
    }

    bool Run(std::initializer_list<std::optional<CString>> next)
    {
        host.user.folders = next;
        return factory.StartCombineProc(Disc(1), document.get(), true);
    }

    int Found() const
    {
        int found = 0;
        for (ToviPhoto* photo : *document->GetPhotoDataArray()) found += photo->IsExistFile();
        return found;
    }

    DeliveryBuilder builder{{.photos = 6, .drawings = 3, .discs = 3}};
    TestHost host;
    TempFolder temp;
    Environment before;
    DriveType kind = DriveType::Optical;
    std::unique_ptr<ToviData> document;
    ToviEnouDataFactory factory;
};

TEST_F(Combine, GathersAllDiscsInTheWorkArea)
{
    for (const DriveType drive : {DriveType::Optical, DriveType::Removable}) {
        kind = drive;
        document.reset();
        factory.DeleteTempData();
        Open(1);
        host.user.calls.clear();
        EXPECT_TRUE(Run({Disc(2), Disc(3)}));
        EXPECT_THAT(Texts(host.user.Messages()), ElementsAre(finished));
        EXPECT_EQ(Found(), 6);
        const CString area = FindCombineArea().folder;
        EXPECT_EQ(area, SuiteFolder() + "QV-CombineData");
        EXPECT_EQ(factory.GetDataFolderPath(), area + "/PHOTO");
        EXPECT_EQ(document->Title(), area + "/PHOTO");
        EXPECT_THAT(Texts(document->DeliveryRoots()), testing::Contains(Disc(3) + "/"))
            << "nothing is saved there";
        EXPECT_EQ(document->GetItemDef()->GetParentPath(), area + "/");
        EXPECT_TRUE(MibIsFileExist(area + "/INDEX_C.XML"));
        for (ToviPhoto* photo : *document->GetPhotoDataArray()) {
            EXPECT_THAT(photo->GetImagePath(), StartsWith(area));
            for (const CString& path : photo->GetPicturePaths())
                EXPECT_THAT(path, StartsWith(area));
        }
    }
    document.reset();
    factory.DeleteTempData();
    EXPECT_FALSE(fs::exists(FindCombineArea().folder));
}

TEST_F(Combine, ListsWhatIsMissingUntilTheUserGivesUp)
{
    EXPECT_TRUE(Run({temp.Path("documents"), "", Disc(2), std::nullopt}));
    EXPECT_THAT(Texts(host.user.Messages()),
                testing::Each(StartsWith("指定したフォルダ内にPHOTO.XMLファイルが存在しません。")));
    EXPECT_EQ(Found(), 4);
    CStringArray missing;
    const auto expected = builder.ExpectedItems();
    for (const int photo : {4, 5}) {
        for (const auto& item : expected[static_cast<std::size_t>(photo)]) {
            const bool isFile = item.title == "写真ファイル名" || item.title == "参考図ファイル名";
            if (isFile && !item.value.empty()) missing.Add(item.value);
        }
    }
    const FolderQuestion& question = host.user.folderQuestion;
    EXPECT_THAT(Texts(question.list), testing::UnorderedElementsAreArray(Texts(missing)));
    EXPECT_EQ(question.listTitle,
              Format("リンクが切れているファイル　（ファイル数：%d）", missing.GetSize()));
}

TEST_F(Combine, UsesAHardDiskInItsPlace)
{
    for (const DriveType drive : {DriveType::Fixed, DriveType::Remote, DriveType::RamDisk}) {
        kind = drive;
        Open(1);
        host.user.calls.clear();
        EXPECT_TRUE(Run({Disc(2), Disc(3)}));
        EXPECT_EQ(Found(), 6);
        EXPECT_THAT(Texts(host.user.Messages()), ElementsAre(finished));
        EXPECT_EQ(factory.GetDataFolderPath(), Disc(3));
        EXPECT_FALSE(fs::exists(FindCombineArea().folder));
    }
    for (const DriveType drive : {DriveType::Unknown, DriveType::NoRoot}) {
        kind = drive;
        host.user.calls.clear();
        EXPECT_FALSE(Run({}));
        EXPECT_THAT(Texts(host.user.Messages()),
                    ElementsAre("不正なフォルダパスです。再度パスの指定を行ってください。"));
    }
}

TEST_F(Combine, UsesItsOwnAreaInItsPlaceOnARemovableDiskToo)
{
    EXPECT_TRUE(StartsCombineArea(Disc(1)));
    EXPECT_TRUE(Run({Disc(2)}));
    const CString gathered = FindCombineArea().photoFolder;
    Environment removable = GetEnvironment();
    removable.driveTypeOf = [](const CString&) { return DriveType::Removable; };
    SetEnvironment(removable);
    EXPECT_FALSE(StartsCombineArea(gathered));
    ToviEnouDataFactory creator;
    document.reset(creator.Create(nullptr, gathered.c_str(), PhotoXMLMlit, nullptr, nullptr));
    host.user.folders = {Disc(3)};
    EXPECT_TRUE(creator.StartCombineProc(gathered, document.get(), true));
    EXPECT_EQ(Found(), 6);
}

TEST_F(Combine, LeavesAnAreaAloneThatAnotherDeliveryIsOpenFrom)
{
    EXPECT_TRUE(Run({Disc(2), Disc(3)}));
    std::unique_ptr<ToviData> other = std::move(document);
    Open(1);
    host.user.calls.clear();
    factory.DeleteTempData();
    EXPECT_FALSE(Run({Disc(2), Disc(3)}));
    EXPECT_THAT(Texts(host.user.Messages()),
                ElementsAre(testing::HasSubstr("ほかのプログラムで開かれています")));
    document = std::move(other);
    EXPECT_EQ(Found(), 6);
}

TEST_F(Combine, LeavesNothingWhenADiscIsPulledOut)
{
    // The disc is a mount of its own where the test may make one, else its folder goes.
    const CString disc = builder.DiscFolder(temp.Path("set"), 2);
    const CString aside = temp.Path("aside");
    fs::rename(disc, aside);
    fs::create_directories(disc);
    DiskMount mounted(disc, "tmpfs", "size=64m");
    fs::copy(aside, disc, fs::copy_options::recursive);
    int pumps = 0;
    host.user.onPump = [&] {
        const bool onSecond = !host.user.folderQuestion.title.empty();
        if (!onSecond || ++pumps != 3) return;
        if (mounted.IsThere()) {
            mounted.PullOut();
        } else {
            fs::remove_all(disc);
        }
    };
    EXPECT_FALSE(Run({Disc(2)}));
    EXPECT_THAT(Texts(host.user.Messages()), ElementsAre(copyFailed));
    EXPECT_GE(pumps, 3);
    EXPECT_FALSE(factory.IsCombineCancelled());
    EXPECT_FALSE(fs::exists(FindCombineArea().folder));
}

TEST_F(Combine, LeavesNothingOfWhatTheUserHasCancelled)
{
    host.user.cancelAtPumps = {5};
    EXPECT_FALSE(Run({Disc(2), Disc(3)}));
    EXPECT_TRUE(factory.IsCombineCancelled());
    EXPECT_TRUE(host.user.Messages().IsEmpty()) << "nothing has failed";
    EXPECT_FALSE(fs::exists(FindCombineArea().folder));
}

TEST_F(Combine, LetsThreadsReadWhatBelongsToTheDeliveryByNow)
{
    const CString outside = temp.Write("outside.JPG", "a picture");
    const auto isRead = [&] { return !document->GetFiles()->Readable(outside).empty(); };
    EXPECT_FALSE(isRead());
    document->SetStandAlone(false);
    EXPECT_TRUE(isRead());
    document->SetStandAlone(true);
    EXPECT_FALSE(isRead());
    document->RootPath(temp.Path().c_str());
    EXPECT_TRUE(isRead());
}
} // namespace
