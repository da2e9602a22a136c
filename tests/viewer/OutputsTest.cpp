#include "delivery/MediaCombine.h"
#include "hosts/viewer/MainFrame.h"
#include "platform/files/MibFile.h"
#include "review/SlideMode.h"
#include "sample/DeliveryBuilder.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "support/Texts.h"
#include "work/Environment.h"

#include <gmock/gmock.h>

#include <QApplication>

namespace
{
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;
using Kind = ScriptedUserInterface::CallKind;

constexpr FrameCommand outputs[] = {FrameCommand::WriteReport, FrameCommand::SavePhoto,
                                    FrameCommand::SaveShownPhotos, FrameCommand::ShowIndex};

/// The main window over a delivery of three photographs on two discs.
class Outputs : public testing::Test
{
protected:
    Outputs() : before(GetEnvironment())
    {
        builder.Write(delivery);
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.MakeFolder("documents"), "", ""},
                        [this](const CString& path) {
                            return path.starts_with(delivery) ? DriveType::Optical
                                                              : DriveType::Fixed;
                        }});
        frame = std::make_unique<MainFrame>();
        frame->show();
    }
    ~Outputs() override
    {
        frame.reset();
        SetEnvironment(before);
    }

    CString Disc(int number) const { return builder.DiscFolder(delivery, number); }
    bool Open() { return frame->OpenDelivery(Disc(1), std::nullopt); }
    QAction* Action(FrameCommand command) const
    {
        for (QAction* action : frame->QWidget::actions()) {
            if (action->data().toInt() == static_cast<int>(command)) return action;
        }
        return nullptr;
    }
    /// Chooses the command and returns what the user was asked and told.
    const std::vector<ScriptedUserInterface::Call>& Choose(FrameCommand command)
    {
        host.user.calls.clear();
        Action(command)->trigger();
        std::erase_if(host.user.calls,
                      [](const auto& call) { return call.kind == Kind::Progress; });
        return host.user.calls;
    }

    TestHost host;
    TempFolder temp;
    Environment before;
    CString delivery = temp.Path("delivery");
    DeliveryBuilder builder{{.photos = 3, .discs = 2}};
    std::unique_ptr<MainFrame> frame;
};

TEST_F(Outputs, NeedADelivery)
{
    for (const FrameCommand command : outputs) EXPECT_FALSE(Action(command)->isEnabled());
    EXPECT_TRUE(Action(FrameCommand::OpenDiscs)->isEnabled());
    Open();
    for (const FrameCommand command : outputs) EXPECT_TRUE(Action(command)->isEnabled());
}

TEST_F(Outputs, SaveTheSelectedPhotographAndAllShown)
{
    Open();
    host.user.saveFiles = {temp.Path("one.JPG")};
    Choose(FrameCommand::SavePhoto);
    EXPECT_EQ(host.user.saveQuestion.name, "P0000001.JPG");
    EXPECT_THAT(Texts(host.user.Messages()), ElementsAre("保存に成功しました。"));
    EXPECT_TRUE(MibReadFile(temp.Path("one.JPG"), 1 << 20) ==
                MibReadFile(Disc(1) + "/PHOTO/PIC/P0000001.JPG", 1 << 20));

    host.user.folders = {temp.MakeFolder("all")};
    Choose(FrameCommand::SaveShownPhotos);
    EXPECT_EQ(host.user.calls[0].text, temp.Path()) << "the folder used last";
    EXPECT_THAT(Texts(host.user.Messages()),
                ElementsAre("処理を完了しました。\n\n対象枚数   ： 3枚\nコピー枚数： 2枚\n"
                            "失敗枚数   ： 1枚"));
    SetSlideMode(true);
    for (const FrameCommand command : {FrameCommand::SavePhoto, FrameCommand::SaveShownPhotos}) {
        Choose(command);
        EXPECT_THAT(Texts(host.user.Messages()),
                    ElementsAre("スライドモード中は写真の保存ができません。"));
    }
    SetSlideMode(false);
}

TEST_F(Outputs, ShowTheIndexInTheBrowser)
{
    Open();
    const auto& calls = Choose(FrameCommand::ShowIndex);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].kind, Kind::OpenFile);
    EXPECT_THAT(calls[0].text, ContainsRegex("/IndexCopy/.*/INDEX_C.html$"));
    host.user.opensFiles = false;
    Choose(FrameCommand::ShowIndex);
    EXPECT_THAT(host.user.Messages()[0], ContainsRegex("/IndexCopy/.*/INDEX_C.html"));
    std::filesystem::remove(Disc(1) + "/INDEX_C.XML");
    Choose(FrameCommand::ShowIndex);
    EXPECT_THAT(host.user.Messages()[0], HasSubstr("INDEX_*.XML"));
}

TEST_F(Outputs, GatherADeliveryFromItsDiscs)
{
    const CString stale = temp.Write("documents/QVScratch/QV-SUITE/QV-CombineData/PHOTO/PIC/x", "");
    host.user.folders = {Disc(1), Disc(2) + "/PHOTO"};
    Choose(FrameCommand::OpenDiscs);
    EXPECT_EQ(host.user.Messages().GetSize(), 1) << "that all is there";
    EXPECT_FALSE(std::filesystem::exists(stale));
    EXPECT_TRUE(Action(FrameCommand::WriteReport)->isEnabled());
    host.user.folders = {temp.MakeFolder("all")};
    Choose(FrameCommand::SaveShownPhotos);
    EXPECT_THAT(host.user.Messages()[0], HasSubstr("コピー枚数： 3枚"));
    host.user.saveFiles = {Disc(2) + "/copy.JPG"};
    Choose(FrameCommand::SavePhoto);
    EXPECT_FALSE(MibIsFileExist(Disc(2) + "/copy.JPG")) << "beside delivered files";

    host.user.folders = {temp.Path("documents")};
    Choose(FrameCommand::OpenDiscs);
    EXPECT_THAT(host.user.Messages()[0], HasSubstr("PHOTO.XML が見つかりません"));
    EXPECT_TRUE(Action(FrameCommand::WriteReport)->isEnabled()) << "the one before stays";

    host.user.folders = {Disc(1)};
    host.user.cancelAtPumps = {host.user.pumps + 2};
    Choose(FrameCommand::OpenDiscs);
    QApplication::processEvents();
    EXPECT_FALSE(Action(FrameCommand::WriteReport)->isEnabled());
    EXPECT_FALSE(MibIsFolderExist(FindCombineArea().folder));
}

TEST_F(Outputs, WriteTheReportNamedAfterTheWork)
{
    if (!MibIsFileExist(MibProgramPath() + "libToviSheet.so")) {
        GTEST_SKIP() << "LibreOffice isn't installed";
    }
    Open();
    const CString report = temp.MakeFolder("reports") + "/r.xls";
    host.user.saveFiles = {report};
    const auto& calls = Choose(FrameCommand::WriteReport);
    EXPECT_THAT(host.user.saveQuestion.name, testing::EndsWith(" 検査結果"));
    EXPECT_THAT(Texts(host.user.Messages()),
                ElementsAre("EXCELファイルへの書き込みが正常に終了しました。"));
    EXPECT_EQ(calls.back().kind, Kind::OpenFile);
    EXPECT_TRUE(MibIsFileExist(report));
    EXPECT_GT(host.user.pumps, 10) << "the window lives while the office starts";
    Choose(FrameCommand::WriteReport);
    EXPECT_THAT(host.user.saveQuestion.folder, HasSubstr("/reports")) << "the last folder";
}
} // namespace
