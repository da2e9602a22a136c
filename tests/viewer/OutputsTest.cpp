#include "delivery/MediaCombine.h"
#include "platform/files/MibFile.h"
#include "support/Texts.h"
#include "viewer/ShownFrame.h"
#include "work/Environment.h"

namespace
{
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;
using Kind = ScriptedUserInterface::CallKind;

/// The main window with a delivery of three photographs on two discs at hand.
struct Outputs : testing::Test, ShownFrame
{
    Outputs()
    {
        builder.Write(discs);
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.MakeFolder("documents"), "", "", temp.Path("cache")},
                        [this](const CString& path) {
                            return path.starts_with(discs) ? DriveType::Optical : DriveType::Fixed;
                        }});
    }
    ~Outputs() override
    {
        frame.reset();
        SetEnvironment(before);
    }

    CString Disc(int number) const { return builder.DiscFolder(discs, number); }
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
        user.calls.clear();
        Action(command)->trigger();
        std::erase_if(user.calls, [](const auto& call) { return call.kind == Kind::Progress; });
        return user.calls;
    }

    ScriptedUserInterface& user = services.user;
    const Environment before = GetEnvironment();
    const CString discs = temp.Path("discs");
    DeliveryBuilder builder{{.photos = 3, .discs = 2}};
};

TEST_F(Outputs, SaveTheSelectedPhotographAndAllShown)
{
    using enum FrameCommand;
    for (const bool isOpen : {false, true}) {
        if (isOpen) frame->OpenDelivery(Disc(1), std::nullopt);
        for (const auto command : {WriteReport, SavePhoto, SaveShownPhotos, ShowIndex})
            EXPECT_EQ(Action(command)->isEnabled(), isOpen);
        EXPECT_TRUE(Action(OpenDiscs)->isEnabled());
    }
    user.saveFiles = {temp.Path("one.JPG")};
    Choose(FrameCommand::SavePhoto);
    EXPECT_EQ(user.saveQuestion.name, "P0000001.JPG");
    EXPECT_TRUE(MibReadFile(temp.Path("one.JPG"), 1 << 20) ==
                MibReadFile(Disc(1) + "/PHOTO/PIC/P0000001.JPG", 1 << 20));

    user.folders = {temp.MakeFolder("all")};
    Choose(FrameCommand::SaveShownPhotos);
    EXPECT_EQ(user.calls[0].text, temp.Path()) << "the folder used last";
    EXPECT_THAT(Texts(user.Messages()),
                ElementsAre("処理を完了しました。\n\n対象枚数   ： 3枚\nコピー枚数： 2枚\n"
                            "失敗枚数   ： 1枚"));
}

TEST_F(Outputs, ShowTheIndexInTheBrowser)
{
    frame->OpenDelivery(Disc(1), std::nullopt);
    const auto& calls = Choose(FrameCommand::ShowIndex);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].kind, Kind::OpenFile);
    EXPECT_THAT(calls[0].text, ContainsRegex("/IndexCopy/.*/INDEX_C.html$"));
    user.opensFiles = false;
    Choose(FrameCommand::ShowIndex);
    EXPECT_THAT(user.Messages()[0], ContainsRegex("/IndexCopy/.*/INDEX_C.html"));
    std::filesystem::remove(Disc(1) + "/INDEX_C.XML");
    Choose(FrameCommand::ShowIndex);
    EXPECT_THAT(user.Messages()[0], HasSubstr("INDEX_*.XML"));
}

TEST_F(Outputs, GatherADeliveryFromItsDiscs)
{
    const CString stale = temp.Write("cache/QVScratch/QV-SUITE/QV-CombineData/PHOTO/PIC/x", "");
    user.folders = {Disc(1), Disc(2) + "/PHOTO"};
    Choose(FrameCommand::OpenDiscs);
    EXPECT_EQ(user.Messages().GetSize(), 1) << "that all is there";
    EXPECT_FALSE(std::filesystem::exists(stale));
    EXPECT_TRUE(Action(FrameCommand::WriteReport)->isEnabled());
    user.folders = {temp.MakeFolder("all")};
    Choose(FrameCommand::SaveShownPhotos);
    EXPECT_THAT(user.Messages()[0], HasSubstr("コピー枚数： 3枚"));
    user.saveFiles = {Disc(2) + "/copy.JPG"};
    Choose(FrameCommand::SavePhoto);
    EXPECT_FALSE(MibIsFileExist(Disc(2) + "/copy.JPG")) << "beside delivered files";

    user.folders = {temp.Path("documents")};
    Choose(FrameCommand::OpenDiscs);
    EXPECT_THAT(user.Messages()[0], HasSubstr("PHOTO.XML が見つかりません"));
    EXPECT_TRUE(Action(FrameCommand::WriteReport)->isEnabled()) << "the one before stays";

    user.folders = {Disc(1)};
    user.cancelAtPumps = {user.pumps + 2};
    Choose(FrameCommand::OpenDiscs);
    QApplication::processEvents();
    EXPECT_FALSE(Action(FrameCommand::WriteReport)->isEnabled());
    EXPECT_FALSE(MibIsFolderExist(FindCombineArea().folder));
}

} // namespace
