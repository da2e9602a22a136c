// What the main window does with deliveries and records: opening, telling what is wrong, asking
// before work is lost.

#include "hosts/viewer/FrameState.h"
#include "platform/text/Cp932.h"
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

TEST(FrameState, KeepsTheLatestDeliveriesOnce)
{
    const TestHost services;
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()), IsEmpty());
    for (const char* folder : {"1", "2", "3", "1", "4", "5", "6", "7", "8", "9", "2"})
        FrameState::AddRecentDelivery(CString("/納品/") + folder);
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()),
                ElementsAre("/納品/2", "/納品/9", "/納品/8", "/納品/7", "/納品/6", "/納品/5",
                            "/納品/4", "/納品/1"));
}

TEST(FrameFiles, TellWhyADeliveryCannotBeOpened)
{
    const CString section(doctype);
    const struct
    {
        const char* what;
        std::optional<CString> photoXml;
        const char* told;
    } cases[] = {
        {"no PHOTO.XML", std::nullopt, "PHOTO.XML が見つかりません"},
        {"an empty PHOTO.XML", "", "対応していない要領のDTD"},
        {"no DTD's name", "<?xml version=\"1.0\"?><photodata/>", "対応していない要領のDTD"},
        {"an unknown DTD", "<?xml version=\"1.0\"?><!DOCTYPE photodata SYSTEM \"OTHER99.DTD\">",
         "対応していない要領のDTD"},
        {"no photograph",
         section + "<photodata><基礎情報><適用要領基準>土木201603-01</適用要領基準></基礎情報></"
                   "photodata>",
         "写真情報がありません"},
        {"a broken PHOTO.XML", section + "<photodata><写真情報><写真番号>1", "作成元に"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        ShownFrame shown;
        shown.temp.MakeFolder("wrong");
        if (test.photoXml) shown.temp.Write("wrong/PHOTO.XML", *test.photoXml);
        EXPECT_FALSE(shown.Open("wrong"));
        EXPECT_THAT(shown.Problem(), HasSubstr(test.told));
        EXPECT_THAT(shown.Problem(), HasSubstr("wrong"));
        EXPECT_THAT(shown.Problem(), EndsWith("ください。"));
        EXPECT_THAT(Texts(FrameState::RecentDeliveries()), IsEmpty());
        EXPECT_TRUE(shown.Open());
        EXPECT_EQ(shown.Problem(), "");
    }
    ShownFrame shown;
    EXPECT_FALSE(shown.Open("none"));
    EXPECT_THAT(shown.Problem(), HasSubstr("というフォルダがありません"));
    InstallHostServices(
        {&shown.services.user, &shown.services.profile, "Tovi", shown.temp.Path("tovi")});
    EXPECT_FALSE(shown.Open());
    EXPECT_THAT(shown.Problem(), HasSubstr("READITEM.XML がありません"));
    shown.temp.Write("READITEM.XML", "<a>");
    EXPECT_FALSE(shown.Open());
    EXPECT_THAT(shown.Problem(), HasSubstr("READITEM.XML を読み込めません"));
}

TEST(FrameFiles, KeepTheOpenDeliveryWhenAnotherCannotBeOpened)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    const CString title = shown.Title();
    EXPECT_THAT(title, EndsWith(" - Tovi"));
    const ToviData* const data = &shown.Data();
    EXPECT_FALSE(shown.Open("none"));
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre(HasSubstr("というフォルダがありません")));
    EXPECT_EQ(&shown.Data(), data);
    EXPECT_EQ(shown.Title(), title);
    EXPECT_THAT(shown.Status(), Contains("表示 8 枚 / 全 8 枚"));
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()), SizeIs(1));
}

TEST(FrameFiles, OfferTheDeliveriesOpenedLast)
{
    ShownFrame shown;
    shown.Deliver("A&B");
    ASSERT_TRUE(shown.Open());
    ASSERT_TRUE(shown.Open("A&B/"));
    ASSERT_TRUE(shown.Open("A&B/PHOTO/../../A&B"));
    shown.Start();
    const auto offered = [&shown] {
        std::vector<QPushButton*> buttons;
        for (QPushButton* button : shown.frame->findChildren<QPushButton*>())
            if (button->isFlat()) buttons.push_back(button);
        return buttons;
    };
    ASSERT_THAT(offered(), SizeIs(2));
    std::filesystem::remove_all(shown.temp.Path("delivery"));
    EXPECT_EQ(offered()[1]->accessibleName(), QtText(shown.temp.Path("delivery")));
    QTest::mouseClick(offered()[1], Qt::LeftButton);
    EXPECT_THAT(shown.Problem(), HasSubstr("というフォルダがありません"));
    QTest::mouseClick(offered()[0], Qt::LeftButton);
    EXPECT_TRUE(shown.IsOpen());
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()),
                ElementsAre(EndsWith("A&B"), EndsWith("delivery")));
}

TEST(FrameFiles, OpenWhatIsDropped)
{
    const struct
    {
        const char* name;
        bool opens;
    } cases[] = {{"delivery", true},
                 {"delivery/PHOTO/PHOTO.XML", true},
                 {"delivery/INDEX_C.XML", true},
                 {"delivery/small.zip", false},
                 {"delivery/PHOTO/PIC", false},
                 {"none", false}};
    for (const auto& test : cases) {
        ShownFrame shown;
        shown.temp.Write("delivery/small.zip", "");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QtText(shown.temp.Path(test.name)))});
        const auto offered = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(shown.frame.get(), &enter);
        EXPECT_TRUE(enter.isAccepted()) << test.name;
        QDropEvent drop({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        drop.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(shown.frame.get(), &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the other program may delete the files";
        QCoreApplication::processEvents();
        EXPECT_EQ(shown.IsOpen(), test.opens) << test.name;
        EXPECT_EQ(shown.Problem().empty(), test.opens) << test.name;
    }
    ShownFrame shown;
    QMimeData text;
    text.setText(QStringLiteral("delivery"));
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &text, Qt::LeftButton, {});
    enter.ignore();
    QApplication::sendEvent(shown.frame.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST(FrameFiles, TellOfPhotographsThatAreNotLoaded)
{
    ShownFrame shown;
    DeliveryBuilder({.photos = 2, .drawings = 0, .images = false})
        .AddXml(0, "<写真情報></写真情報>")
        .Write(shown.temp.Path("nested"));
    EXPECT_TRUE(shown.Open("nested"));
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre(HasSubstr("写真情報が3件ありますが、読み込めた写真は2枚です")));
    EXPECT_TRUE(shown.Open());
    EXPECT_THAT(Texts(shown.services.user.Messages()), SizeIs(1));
}

TEST(FrameFiles, AskWhichOfSeveralDeliveriesIsMeant)
{
    ShownFrame shown;
    for (const char* name : {"works/b", "works/a&c"}) shown.Deliver(name);
    EXPECT_FALSE(shown.Open("works"));
    EXPECT_EQ(shown.Problem(), "");
    const Choice& asked = shown.services.user.choice;
    ASSERT_EQ(asked.options.GetSize(), 2);
    EXPECT_EQ(asked.options[0].text, "a&c");
    EXPECT_EQ(asked.options[1].text, "b");
    EXPECT_NE(asked.options[1].explanation, "") << "the work's title";
    shown.services.user.options = {1, 0};
    EXPECT_TRUE(shown.Open("works"));
    EXPECT_EQ(shown.Data().RootPath(), shown.temp.Path("works/b/PHOTO/"));
    EXPECT_THAT(Texts(FrameState::RecentDeliveries()), ElementsAre(EndsWith("works/b/PHOTO")));
    EXPECT_TRUE(shown.frame->OpenDiscs(shown.temp.Path("works")));
    EXPECT_THAT(shown.Data().RootPath(), HasSubstr("works/a&c/PHOTO"));
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
    struct Loss
    {
        const char* what;
        std::function<void(ShownFrame&)> begin;
        /// What happened unless the user held it up.
        std::function<bool(const ShownFrame&)> happened;
    };
    const Loss losses[] = {
        {"closing the window", [](ShownFrame& shown) { shown.frame->close(); },
         [](const ShownFrame& shown) { return !shown.frame->isVisible(); }},
        {"quitting", [](ShownFrame& shown) { shown.Press(Qt::Key_Q, Qt::ControlModifier); },
         [](const ShownFrame& shown) { return !shown.frame->isVisible(); }},
        {"closing the delivery",
         [](ShownFrame& shown) { shown.Press(Qt::Key_W, Qt::ControlModifier); },
         [](const ShownFrame& shown) { return !shown.IsOpen(); }},
        {"opening another", [](ShownFrame& shown) { shown.Open("other"); },
         [](const ShownFrame& shown) {
             return shown.IsOpen() && !shown.Data().CountLabel(LabelNg1);
         }},
    };
    for (const Loss& loss : losses) {
        SCOPED_TRACE(loss.what);
        ShownFrame shown;
        shown.Deliver("other");
        ASSERT_TRUE(shown.Open());
        shown.Press(Qt::Key_2);
        EXPECT_TRUE(shown.frame->isWindowModified());
        EXPECT_THAT(shown.Status(), Contains("未保存の検査があります"));
        const CString record = shown.temp.Path("record.xml");

        shown.OnDialogs({GiveUp});
        loss.begin(shown);
        EXPECT_FALSE(loss.happened(shown)) << "cancelled";
        shown.OnDialogs({Choose("保存する"), GiveUp});
        loss.begin(shown);
        EXPECT_FALSE(loss.happened(shown)) << "no file named";
        EXPECT_EQ(shown.Data().CountLabel(LabelNg1), 1);
        const CString delivered = shown.temp.Path("delivery/record.xml");
        shown.OnDialogs({Choose("保存する"), NameFile(delivered), GiveUp, GiveUp});
        loss.begin(shown);
        EXPECT_FALSE(loss.happened(shown)) << "not saved";
        EXPECT_FALSE(std::filesystem::exists(delivered));

        shown.OnDialogs({Choose("保存する"), NameFile(record)});
        loss.begin(shown);
        EXPECT_TRUE(loss.happened(shown));
        shown.Start();
        ASSERT_TRUE(shown.Open());
        EXPECT_TRUE(shown.frame->OpenRecord(record));
        EXPECT_THAT(shown.Status(),
                    testing::IsSupersetOf({"NG 1", "未検査 7", "検査状況は保存済み"}));

        shown.Press(Qt::Key_0);
        shown.OnDialogs({Choose("保存しない")});
        loss.begin(shown);
        EXPECT_TRUE(loss.happened(shown));
        shown.Start();
        ASSERT_TRUE(shown.Open());
        EXPECT_TRUE(shown.frame->OpenRecord(record));
        EXPECT_THAT(shown.Status(), Contains("NG 1")) << "as it was saved";
    }
}

TEST(FrameFiles, BringTogetherWhatOthersHaveSavedMeanwhile)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_2);
    shown.OnDialogs({NameFile(shown.temp.Path("record.xml"))});
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    std::string theirs = shown.temp.Read("record.xml");
    const std::string notOk = *Cp932::Encode("<付箋1-OK>0");
    theirs.replace(theirs.rfind(notOk) + notOk.size() - 1, 1, "1");
    shown.temp.Write("record.xml", theirs);
    shown.Press(Qt::Key_3);

    shown.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(shown.Status(), testing::IsSupersetOf({"OK 0", "未保存の検査があります"}));
    EXPECT_EQ(shown.temp.Read("record.xml"), theirs) << "the user gave up";
    shown.services.user.options = {0};
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(shown.Status(), testing::IsSupersetOf({"OK 1", "NG 1", "検査状況は保存済み"}));
    EXPECT_THAT(Texts(shown.services.user.Messages()), IsEmpty());
    shown.Start();
    ASSERT_TRUE(shown.Open());
    EXPECT_TRUE(shown.frame->OpenRecord(shown.temp.Path("record.xml")));
    EXPECT_EQ(shown.Data().CountLabel(LabelNg1) + shown.Data().CountLabel(LabelNg2), 2);
    EXPECT_EQ(shown.Data().CountLabel(LabelOk), 1);
}

TEST(FrameFiles, SaveTheInspectionOfADeliveryThatHasVanished)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    std::filesystem::remove_all(shown.temp.Path("delivery"));
    for (const int key : {Qt::Key_PageDown, Qt::Key_1, Qt::Key_N, Qt::Key_PageUp}) shown.Press(key);
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
}

TEST(FrameFiles, TellOfARecordOfAnotherDelivery)
{
    ShownFrame shown;
    ASSERT_TRUE(shown.Open());
    shown.Press(Qt::Key_1);
    const CString record = shown.temp.Write("other.xml", "<検査状況/>");
    for (const CString& wrong : {record, shown.temp.Path("none.xml")}) {
        EXPECT_FALSE(shown.frame->OpenRecord(wrong));
        EXPECT_EQ(shown.Data().CountLabel(LabelOk), 1);
    }
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre(HasSubstr("other.xml"), HasSubstr("none.xml")));
    EXPECT_THAT(shown.Status(), Contains("未保存の検査があります"));
}
} // namespace
