// What the main window does with deliveries and records: opening, telling what is wrong, asking
// before work is lost.

#include "hosts/viewer/FrameState.h"
#include "hosts/viewer/RecentFacts.h"
#include "platform/text/Cp932.h"
#include "support/Labels.h"
#include "support/Texts.h"
#include "viewer/ShownFrame.h"

#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* doctype = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<!DOCTYPE photodata SYSTEM \"PHOTO05.DTD\">\n";

TEST(FrameFiles, TellWhyADeliveryCannotBeOpened)
{
    const CString section(doctype);
    const std::pair<std::optional<CString>, const char*> cases[] = {
        {std::nullopt, "PHOTO.XML が見つかりません"},
        {"", "対応していない要領のDTD"},
        {"<?xml version=\"1.0\"?><!DOCTYPE photodata SYSTEM \"OTHER99.DTD\">",
         "対応していない要領のDTD"},
        {section + "<photodata><基礎情報></基礎情報></photodata>", "写真情報がありません"},
        {section + "<photodata><写真情報><写真番号>1", "作成元に"},
    };
    ShownFrame shown;
    for (const auto& [photoXml, told] : cases) {
        shown.temp.MakeFolder("wrong");
        if (photoXml) shown.temp.Write("wrong/PHOTO.XML", *photoXml);
        EXPECT_FALSE(shown.Open("wrong"));
        EXPECT_THAT(shown.Problem(), testing::AllOf(HasSubstr(told), HasSubstr("wrong")));
    }
    EXPECT_FALSE(shown.Open("none"));
    EXPECT_THAT(shown.Problem(), HasSubstr("というフォルダがありません"));
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()), IsEmpty());
    ASSERT_TRUE(shown.Open());
    EXPECT_EQ(shown.Problem(), "");

    const CString title = shown.Title();
    const ToviData* const data = &shown.Data();
    EXPECT_FALSE(shown.Open("none"));
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre(HasSubstr("というフォルダがありません")));
    EXPECT_TRUE(&shown.Data() == data && shown.Title() == title) << "the open one stays";
    EXPECT_THAT(shown.Status(), Contains("表示 8 枚 / 全 8 枚"));
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()), SizeIs(1));

    shown.Start();
    InstallHostServices(
        {&shown.services.user, &shown.services.profile, "Tovi", shown.temp.Path("tovi")});
    EXPECT_FALSE(shown.Open());
    EXPECT_THAT(shown.Problem(), HasSubstr("READITEM.XML がありません"));
    shown.temp.Write("READITEM.XML", "<a>");
    EXPECT_FALSE(shown.Open());
    EXPECT_THAT(shown.Problem(), HasSubstr("READITEM.XML を読み込めません"));
}

TEST(FrameFiles, OfferTheDeliveriesOpenedLast)
{
    ShownFrame shown;
    shown.Deliver("A&B");
    for (const char* path : {"delivery", "A&B/", "A&B/PHOTO/../../A&B"})
        ASSERT_TRUE(shown.Open(path));
    shown.Start();
    std::filesystem::remove_all(shown.temp.Path("delivery"));
    for (const char* name : {"delivery", "A&B"}) {
        for (QPushButton* button : shown.frame->findChildren<QPushButton*>()) {
            if (button->accessibleName() != QtText(shown.temp.Path(name))) continue;
            QTest::mouseClick(button, Qt::LeftButton);
            break;
        }
        EXPECT_EQ(shown.IsOpen(), shown.Problem().empty()) << name;
    }
    EXPECT_TRUE(shown.IsOpen());
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()),
                ElementsAre(EndsWith("A&B"), EndsWith("delivery")));
    PasteLabel(shown.Data(), 2, LabelNg1);
    shown.Start();
    const RecentFacts facts = ReadRecentFacts(shown.temp.Path("A&B"));
    EXPECT_FALSE(facts.title.isEmpty());
    EXPECT_THAT(FromQtText(RecentText(facts)), HasSubstr("未検査 7 / 8枚"));
    EXPECT_EQ(RecentText(ReadRecentFacts("/ない")), QString());
}

TEST(FrameFiles, OpenWhatIsDropped)
{
    const std::pair<const char*, bool> cases[] = {{"delivery/PHOTO/PHOTO.XML", true},
                                                  {"delivery/INDEX_C.XML", true},
                                                  {"delivery/small.zip", false},
                                                  {"none", false}};
    for (const auto& [name, opens] : cases) {
        ShownFrame shown;
        shown.temp.Write("delivery/small.zip", "");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QtText(shown.temp.Path(name)))});
        const auto offered = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(shown.frame.get(), &enter);
        EXPECT_TRUE(enter.isAccepted()) << name;
        QDropEvent drop({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        drop.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(shown.frame.get(), &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the other program may delete the files";
        QCoreApplication::processEvents();
        EXPECT_EQ(shown.IsOpen(), opens) << name;
        EXPECT_EQ(shown.Problem().empty(), opens) << name;

        QMimeData text;
        text.setText(QStringLiteral("delivery"));
        QDragEnterEvent textEnter({10, 10}, Qt::CopyAction, &text, Qt::LeftButton, {});
        textEnter.ignore();
        QApplication::sendEvent(shown.frame.get(), &textEnter);
        EXPECT_FALSE(textEnter.isAccepted());
    }
}

TEST(FrameFiles, TellOfPhotographsThatAreNotLoadedAndAskWhichDeliveryIsMeant)
{
    ShownFrame shown;
    DeliveryBuilder({.photos = 2, .drawings = 0, .images = false})
        .AddXml(0, "<写真情報></写真情報>")
        .Write(shown.temp.Path("nested"));
    EXPECT_TRUE(shown.Open("nested"));
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre(HasSubstr("写真情報が3件ありますが、読み込めた写真は2枚です")));

    for (const char* name : {"works/b", "works/a&c"}) shown.Deliver(name);
    EXPECT_FALSE(shown.Open("works"));
    const Choice& asked = shown.services.user.choice;
    ASSERT_EQ(asked.options.GetSize(), 2);
    EXPECT_EQ(asked.options[0].text, "a&c");
    EXPECT_NE(asked.options[1].explanation, "") << "the work's title";
    shown.services.user.options = {1, 0};
    EXPECT_TRUE(shown.Open("works"));
    EXPECT_EQ(shown.Data().RootPath(), shown.temp.Path("works/b/PHOTO/"));
    EXPECT_TRUE(shown.frame->OpenDiscs(shown.temp.Path("works")));
    EXPECT_THAT(shown.Data().RootPath(), HasSubstr("works/a&c/PHOTO"));
    EXPECT_THAT(Texts(shown.services.user.Messages()), SizeIs(1));
}

/// Presses the button of the question about unsaved work whose text begins with \p text.
auto Choose(const char* text)
{
    return [text](QWidget& dialog) {
        auto* const box = qobject_cast<QMessageBox*>(&dialog);
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* button : box->buttons()) {
            if (!FromQtText(button->text()).starts_with(text)) continue;
            button->click();
            return;
        }
        FAIL() << "no button " << text;
    };
}

/// Names the file that a record is saved to.
auto NameFile(const CString& path)
{
    return [path](QWidget& dialog) {
        ASSERT_NE(qobject_cast<QFileDialog*>(&dialog), nullptr);
        auto* const edit = dialog.findChild<QLineEdit*>();
        edit->setText(QtText(path));
        QTest::keyClick(edit, Qt::Key_Return);
    };
}

void GiveUp(QWidget& dialog)
{
    QTest::keyClick(&dialog, Qt::Key_Escape);
}

TEST(FrameFiles, AskBeforeWorkIsLost)
{
    const std::pair<const char*, std::function<void(ShownFrame&)>> losses[] = {
        {"closing the window", [](ShownFrame& shown) { shown.frame->close(); }},
        {"quitting", [](ShownFrame& shown) { shown.Press(Qt::Key_Q, Qt::ControlModifier); }},
        {"closing it", [](ShownFrame& shown) { shown.Press(Qt::Key_W, Qt::ControlModifier); }},
        {"opening another", [](ShownFrame& shown) { shown.Open("other"); }}};
    for (const auto& [what, begin] : losses) {
        SCOPED_TRACE(what);
        ShownFrame shown;
        shown.Deliver("other");
        const CString record = shown.temp.Path("record.xml");
        const CString delivered = shown.temp.Path("delivery/record.xml");
        using Acts = std::deque<std::function<void(QWidget&)>>;
        const std::tuple<const char*, Acts, bool> answers[] = {
            {"cancelled", {GiveUp}, false},
            {"no file named", {Choose("保存する"), GiveUp}, false},
            {"not saved", {Choose("保存する"), NameFile(delivered), GiveUp, GiveUp}, false},
            {"saved", {Choose("保存する"), NameFile(record)}, true},
            {"given up", {Choose("保存しない")}, true}};
        ASSERT_TRUE(shown.Open());
        shown.Press(Qt::Key_1);
        EXPECT_THAT(shown.Status(), Contains("未保存の検査があります"));
        for (const auto& [answer, acts, isLost] : answers) {
            SCOPED_TRACE(answer);
            shown.OnDialogs(acts);
            begin(shown);
            const bool stays =
                shown.frame->isVisible() && shown.IsOpen() && shown.frame->isWindowModified();
            EXPECT_EQ(stays, !isLost);
            EXPECT_FALSE(std::filesystem::exists(delivered));
            if (!isLost) continue;
            shown.Start();
            ASSERT_TRUE(shown.Open());
            EXPECT_TRUE(shown.frame->OpenRecord(record));
            EXPECT_THAT(shown.Status(),
                        testing::IsSupersetOf({"NG 1", "未検査 7", "検査状況は保存済み"}));
            shown.Press(Qt::Key_Delete);
        }
    }
}

TEST(FrameFiles, BringTogetherWhatOthersHaveSavedMeanwhile)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_1);
    shown.OnDialogs({NameFile(shown.temp.Path("record.xml"))});
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    std::string theirs = shown.temp.Read("record.xml");
    const std::string notOk = *Cp932::Encode("<付箋1-OK>0");
    theirs.replace(theirs.rfind(notOk) + notOk.size() - 1, 1, "1");
    shown.temp.Write("record.xml", theirs);
    shown.Press(Qt::Key_2);
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(shown.Status(), testing::IsSupersetOf({"OK 0", "未保存の検査があります"}));
    EXPECT_EQ(shown.temp.Read("record.xml"), theirs) << "the user gave up";
    shown.services.user.options = {0};
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(shown.Status(), testing::IsSupersetOf({"OK 1", "NG 1", "検査状況は保存済み"}));
    shown.Press(Qt::Key_Delete);
    EXPECT_TRUE(shown.frame->OpenRecord(shown.temp.Path("record.xml")));
    ASSERT_THAT(shown.Status(), testing::IsSupersetOf({"OK 1", "NG 1", "検査状況は保存済み"}));
    ASSERT_TRUE(shown.Open());
    EXPECT_THAT(shown.Status(), Contains("検査は未着手")) << "another inspection";
}

TEST(FrameFiles, SaveTheInspectionOfADeliveryThatHasVanished)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    std::filesystem::remove_all(shown.temp.Path("delivery"));
    for (const int key : {Qt::Key_PageDown, Qt::Key_O, Qt::Key_N, Qt::Key_PageUp}) shown.Press(key);
    for (const int mode : {Qt::Key_6, Qt::Key_7, Qt::Key_5}) {
        shown.Press(mode, Qt::ControlModifier);
        shown.frame->grab();
    }
    shown.OnDialogs({NameFile(shown.temp.Path("record"))});
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(shown.temp.Read("record.xml"), "");
    EXPECT_THAT(Texts(shown.services.user.Messages()), IsEmpty());
    EXPECT_FALSE(shown.Open());
    EXPECT_EQ(shown.Data().CountLabel(LabelOk), 1);

    shown.services.user.calls.clear();
    shown.Press(Qt::Key_Delete);
    const CString other = shown.temp.Write("other.xml", "<検査状況/>");
    for (const CString& wrong : {other, shown.temp.Path("none.xml")})
        EXPECT_FALSE(shown.frame->OpenRecord(wrong));
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre(HasSubstr("other.xml"), HasSubstr("none.xml")));
    EXPECT_THAT(shown.Status(), Contains("未保存の検査があります"));
}
} // namespace
