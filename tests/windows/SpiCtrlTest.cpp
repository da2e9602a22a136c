#include "platform/controls/GaluDSplitter.h"
#include "platform/controls/GaluMultiStatusButton.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "review/SlideMode.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/cell/CellChild.h"
#include "windows/cell/ToviCommentWindow.h"
#include "windows/cell/ToviControlValueTable.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/cell/ToviNamePlate.h"
#include "windows/cell/ToviSpiCtrl.h"
#include "windows/cell/ToviSpiListCtrl.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>

#include <filesystem>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int cellId = 100;
/// The delivery of these tests: what is wrong with its photographs.
enum : int
{
    whole = 0,
    missing = 1,
    broken = 2,
    titled = 3,
    beyond = 4
};

CString LongTitle()
{
    CString title = "<img src=\"/etc/passwd\">";
    for (int part = 0; part < 75; ++part) title += "掘削状況";
    return title;
}

DeliveryBuilder Delivery()
{
    DeliveryBuilder delivery({.photos = 4, .drawings = 1});
    delivery.Set(whole, "写真タイトル", "着手前");
    delivery.Set(whole, "施工管理値",
                 "幅:設計値 100・実測値 98・差 -2、厚:設計値 5・実測値 6・差 1");
    delivery.Remove(missing, "施工管理値");
    delivery.Set(broken, "施工管理値", "幅:1・2");
    delivery.Set(titled, "写真タイトル", LongTitle());
    return delivery;
}

/// A cell over that delivery, with what it told since it was last asked.
struct ShownCell
{
    explicit ShownCell(int photo)
    {
        document.Load();
        setting = document.GetVisualSetting();
        std::filesystem::remove(sample.Photo(missing).GetImagePath());
        std::ofstream(sample.Photo(broken).GetImagePath()) << "no picture";
        cell = std::make_unique<ToviSpiCtrl>(&document, nullptr, &setting, cellId, &window);
        Connect();
        window.resize(640, 480);
        cell->resize(640, 480);
        window.show();
        window.activateWindow();
        Show(photo);
        QTest::qWait(0);
        Told();
    }

    void Connect()
    {
        ToviSpiCtrl* const from = cell.get();
        QObject::connect(from, &ToviSpiCtrl::Clicked, from, [this](int id) { Note("click", id); });
        QObject::connect(from, &ToviSpiCtrl::DoubleClicked, from,
                         [this](int id) { Note("double", id); });
        QObject::connect(from, &ToviSpiCtrl::RightClicked, from,
                         [this](int id) { Note("right", id); });
        QObject::connect(from, &ToviSpiCtrl::KeyPressed, from,
                         [this](int key) { Note("key", key); });
        QObject::connect(from, &ToviSpiCtrl::PasteLabelRequested, from,
                         [this](int label) { Note("paste", label); });
        QObject::connect(from, &ToviSpiCtrl::RemoveLabelRequested, from,
                         [this](int label) { Note("remove", label); });
    }

    void Note(const char* what, int number)
    {
        told.push_back(what + (" " + std::to_string(number)));
    }
    std::vector<CString> Told() { return std::exchange(told, {}); }

    /// The tree has put the photographs into an order of its own.
    void Show(int photo)
    {
        const int position = document.GetCurrentArray().Find(photo);
        cell->SetPhoto(photo == beyond ? document.GetCurrentPhotoCount() : position);
    }

    ToviPhoto& Photo() { return *document.GetPhoto(cell->GetPhotoIndex()); }
    template <class Child>
    Child* Find(int id)
    {
        for (Child* child : cell->findChildren<Child*>()) {
            if (WindowId(child) == id) return child;
        }
        ADD_FAILURE() << "no child " << id;
        return nullptr;
    }
    ToviNamePlate* Plate() { return Find<ToviNamePlate>(idNamePlate); }
    LumImgWnd* Image() { return Find<LumImgWnd>(idImage); }
    QLabel* FailPlate() { return Find<QLabel>(idFailPlate); }
    ToviSpiListCtrl* List() { return Find<ToviSpiListCtrl>(idInfoList); }
    QWidget* ListView() { return List()->View(); }
    ToviControlValueTable* Table() { return Find<ToviControlValueTable>(idValueTable); }
    QPlainTextEdit* Edit() { return Find<QPlainTextEdit>(idValueEdit); }
    ToviLabelButton* Button(unsigned int label) { return Plate()->Button(label); }
    bool WaitForFullPicture()
    {
        return QTest::qWaitFor([this] { return Photo().IsImageLoaded(); }, 5000);
    }

    /// The labels that are pasted, which the buttons must show.
    std::vector<unsigned int> Labels()
    {
        std::vector<unsigned int> labels;
        for (unsigned int label = 0; label < labelCount; ++label) {
            if (Photo().IsLabelPasted(label)) labels.push_back(label);
            EXPECT_EQ(Button(label)->IsPressed(), Photo().IsLabelPasted(label)) << label;
        }
        return labels;
    }

    OpenedSample sample{Delivery()};
    ToviData& document = *sample.document;
    ToviPhotoCtrlVisualSetting setting;
    QWidget window;
    std::unique_ptr<ToviSpiCtrl> cell;
    std::vector<CString> told;
};

const CString clicked = "click 100";

TEST(SpiCtrl, ShowsTheThumbnailAtOnceAndTheFullPictureLater)
{
    ShownCell shown(whole);
    EXPECT_TRUE(shown.Image()->isVisible());
    EXPECT_TRUE(shown.Image()->IsEnableImage());
    EXPECT_TRUE(shown.Photo().IsThumbLoaded());
    EXPECT_FALSE(shown.Photo().IsImageLoaded());
    EXPECT_TRUE(shown.WaitForFullPicture());
    EXPECT_TRUE(shown.Image()->isVisible());
    EXPECT_TRUE(shown.Image()->IsEnableImage());
}

TEST(SpiCtrl, ShowsTheSamePhotographAgainInThePresentView)
{
    ShownCell shown(whole);
    ASSERT_TRUE(shown.WaitForFullPicture());
    QTest::keyClick(shown.Image(), Qt::Key_Plus);
    const double zoom = shown.Image()->View().Zoom();
    shown.Show(whole);
    EXPECT_EQ(shown.Image()->View().Zoom(), zoom);
    EXPECT_FALSE(shown.Image()->View().IsFit());
    shown.Show(titled);
    EXPECT_TRUE(shown.Image()->View().IsFit());
}

TEST(SpiCtrl, ReleasesThePictureWithThePhotograph)
{
    for (const int next : {static_cast<int>(titled), static_cast<int>(beyond)}) {
        ShownCell shown(whole);
        ToviPhoto& photo = shown.Photo();
        ASSERT_TRUE(shown.WaitForFullPicture());
        shown.Show(next);
        EXPECT_FALSE(photo.IsImageLoaded());
        EXPECT_FALSE(photo.GetImage().IsValid());
    }
}

TEST(SpiCtrl, ShowsAPlateForAPictureThatCannotBeRead)
{
    for (const int position : {static_cast<int>(missing), static_cast<int>(broken)}) {
        ShownCell shown(position);
        EXPECT_FALSE(shown.FailPlate()->isVisible());
        ASSERT_TRUE(QTest::qWaitFor([&] { return shown.FailPlate()->isVisible(); }, 5000));
        EXPECT_FALSE(shown.Image()->isVisible());
        EXPECT_EQ(FromQtText(shown.FailPlate()->text()), "表示できません");
        EXPECT_EQ(shown.FailPlate()->grab().toImage().pixelColor(3, 3), QColor(230, 255, 230));
        EXPECT_EQ(shown.FailPlate()->geometry(), shown.Image()->geometry());

        shown.cell->FocusChild(idImage);
        EXPECT_TRUE(shown.FailPlate()->hasFocus());
        shown.Show(whole);
        EXPECT_TRUE(shown.Image()->isVisible());
        EXPECT_TRUE(shown.Image()->hasFocus());
    }
}

TEST(SpiCtrl, TellsItemsControlValuesAndTitle)
{
    ShownCell shown(whole);
    std::vector<CString> titles;
    for (int row = 0; row < shown.List()->GetItemCount(); ++row) {
        titles.push_back(shown.List()->GetItemText(row, 0));
    }
    EXPECT_THAT(titles, Contains("写真タイトル"));
    EXPECT_THAT(titles, testing::Not(Contains("施工管理値")));
    EXPECT_TRUE(shown.Table()->isVisible());
    EXPECT_FALSE(shown.Edit()->isVisible());
    EXPECT_EQ(shown.Table()->GetItemCount(), 2);
    EXPECT_EQ(shown.Table()->GetItemText(1, 3), "1");
    EXPECT_EQ(shown.Plate()->GetTitle(), "着手前");

    shown.Show(broken);
    EXPECT_FALSE(shown.Table()->isVisible());
    EXPECT_TRUE(shown.Edit()->isVisible());
    EXPECT_EQ(FromQtText(shown.Edit()->toPlainText()), "幅:1・2");
    shown.Show(missing);
    EXPECT_EQ(FromQtText(shown.Edit()->toPlainText()), "");
}

TEST(SpiCtrl, ColoursTheTitlesOfTheList)
{
    ShownCell shown(whole);
    const QAbstractItemModel& model = *shown.List()->View()->model();
    const auto colourOf = [&](const CString& title) {
        for (int row = 0; row < model.rowCount(); ++row) {
            if (shown.List()->GetItemText(row, 0) != title) continue;
            EXPECT_FALSE(model.data(model.index(row, 1), Qt::ForegroundRole).isValid());
            return model.data(model.index(row, 0), Qt::ForegroundRole).value<QColor>();
        }
        ADD_FAILURE() << title;
        return QColor();
    };
    const CString exif = "撮影日時";
    EXPECT_EQ(colourOf("写真タイトル"), QColor(255, 0, 0));
    EXPECT_EQ(colourOf("ファイルサイズ"), QColor(0, 128, 0));
    EXPECT_EQ(colourOf(exif), QColor(160, 82, 45));
    // Until the next photograph, items of the file have no colour.
    shown.cell->FillInfo();
    EXPECT_EQ(colourOf("写真タイトル"), QColor(255, 0, 0));
    EXPECT_FALSE(colourOf(exif).isValid());
    shown.Show(whole);
    EXPECT_EQ(colourOf(exif), QColor(160, 82, 45));
}

TEST(SpiCtrl, MakesRoomForTheStripOfAComment)
{
    ShownCell shown(whole);
    EXPECT_EQ(shown.Image()->geometry(), QRect(0, 0, 373, 453));
    SetComment(shown.document, whole, "確認");
    shown.cell->LayoutChildren();
    EXPECT_EQ(shown.Image()->geometry(), QRect(0, 30, 373, 423));
    EXPECT_EQ(shown.cell->GetImageSize(), QSize(373, 423));
    shown.setting.SetVisibleComment(false);
    shown.setting.SetImageTextArrange(ToviPhotoCtrlVisualSetting::TextHidden);
    shown.cell->LayoutChildren();
    EXPECT_EQ(shown.cell->GetImageSize(), QSize(640, 453));
    EXPECT_FALSE(shown.List()->isVisible());
    EXPECT_GT(shown.List()->GetItemCount(), 0);
}

TEST(SpiCtrl, GivesTheControlValuesTheirPaneUnlessTheyAreHidden)
{
    ShownCell shown(whole);
    auto* const splitter = shown.Find<GaluDSplitter>(idSplitter);
    EXPECT_EQ(splitter->GetPane(1)->height(), 75);
    const int listHeight = shown.List()->height();
    QTest::keyClick(splitter->handle(1), Qt::Key_Up);
    EXPECT_LT(shown.List()->height(), listHeight);
    EXPECT_EQ(shown.Table()->height(), splitter->GetPane(1)->height());
    const int moved = splitter->GetPane(1)->height();
    shown.Show(titled);
    EXPECT_EQ(splitter->GetPane(1)->height(), moved);

    ToviItemShowSettings& items = shown.setting.GetItemShowSettings();
    items[items.Find("施工管理値")].Bold(false);
    shown.cell->FillInfo();
    EXPECT_FALSE(splitter->GetPane(1)->isVisible());
}

TEST(SpiCtrl, IsEmptyBehindTheLastPhotograph)
{
    ShownCell shown(whole);
    shown.Button(LabelOk)->setFocus();
    shown.Show(beyond);
    EXPECT_EQ(shown.cell->GetPhotoIndex(), -1);
    EXPECT_FALSE(shown.Image()->IsEnableImage());
    EXPECT_FALSE(shown.Button(LabelOk)->isVisible());
    EXPECT_EQ(shown.List()->GetItemCount(), 0);
    EXPECT_EQ(shown.Table()->GetItemCount(), 0);
    EXPECT_EQ(shown.Plate()->GetTitle(), "");
    EXPECT_TRUE(shown.Plate()->hasFocus());
    shown.Told();
    QTest::mouseClick(shown.Plate(), Qt::LeftButton);
    QTest::mouseClick(shown.Plate(), Qt::RightButton);
    EXPECT_THAT(shown.Told(), IsEmpty());
    QTest::qWait(200);
    EXPECT_FALSE(shown.FailPlate()->isVisible());
}

TEST(SpiCtrl, ToldOfClicksOnItsPartsTellsThePanel)
{
    ShownCell shown(whole);
    QTest::mouseClick(shown.Plate(), Qt::LeftButton, {}, {20, 10});
    EXPECT_THAT(shown.Told(), Contains(clicked));
    EXPECT_TRUE(shown.Plate()->hasFocus());
    QTest::mouseDClick(shown.Plate(), Qt::LeftButton, {}, {20, 10});
    EXPECT_THAT(shown.Told(), Contains("double 100"));

    for (QWidget* child : {static_cast<QWidget*>(shown.Image()), shown.List()->View()->viewport(),
                           static_cast<QWidget*>(shown.Plate())}) {
        QTest::mouseClick(child, Qt::LeftButton, {}, {20, 10});
        EXPECT_THAT(shown.Told(), Contains(clicked));
        QTest::mouseClick(child, Qt::RightButton, {}, {20, 10});
        EXPECT_EQ(shown.Told().back(), "right 100");
        EXPECT_TRUE(shown.Plate()->hasFocus());
    }
    // The marks, which take no clicks, leave them to the plate.
    QTest::mouseClick(shown.Find<GaluMultiStatusButton>(idCheckMark), Qt::LeftButton);
    EXPECT_THAT(shown.Told(), Contains(clicked));
}

TEST(SpiCtrl, SelectsItselfWhereTheFocusComesToAChild)
{
    ShownCell shown(whole);
    for (const int child : {idNamePlate, idInfoList, idValueTable, idImage}) {
        shown.cell->FocusChild(child);
        EXPECT_THAT(shown.Told(), ElementsAre(clicked)) << child;
        shown.cell->FocusChild(0);
        EXPECT_TRUE(shown.cell->hasFocus());
    }
    shown.Photo().Select(true);
    shown.cell->FocusChild(idNamePlate);
    shown.cell->FocusChild(idFirstLabel + 2);
    EXPECT_TRUE(shown.Button(LabelNg2)->hasFocus());
    EXPECT_THAT(shown.Told(), IsEmpty());
}

TEST(SpiCtrl, KeepsTheFocusInThePlaceWhoseWindowChanges)
{
    ShownCell shown(whole);
    shown.cell->FocusChild(idValueTable);
    EXPECT_TRUE(shown.Table()->hasFocus());
    shown.Show(broken);
    EXPECT_TRUE(shown.Edit()->hasFocus());
    shown.Show(whole);
    EXPECT_TRUE(shown.Table()->hasFocus());
}

TEST(SpiCtrl, HandsKeysThatTurnPagesToThePanel)
{
    ShownCell shown(whole);
    shown.Photo().Select(true);
    const std::vector<QWidget*> children = {shown.Image(),         shown.ListView(),
                                            shown.Table()->View(), shown.Button(LabelOk),
                                            shown.Plate(),         shown.cell.get()};
    for (QWidget* child : children) {
        child->setFocus();
        for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Left, Qt::Key_Right,
                                  Qt::Key_Up, Qt::Key_Down}) {
            QTest::keyClick(child, key, Qt::ControlModifier);
            EXPECT_EQ(shown.Told().back(), "key " + std::to_string(key));
            EXPECT_TRUE(child->hasFocus());
        }
    }
    QTest::keyClick(shown.ListView(), Qt::Key_Down);
    EXPECT_THAT(shown.Told(), IsEmpty());
    QTest::keyClick(shown.Plate(), Qt::Key_Down);
    EXPECT_THAT(shown.Told(), ElementsAre("key " + std::to_string(Qt::Key_Down)));
}

TEST(SpiCtrl, AsksForLabelsByMouseAndKey)
{
    ShownCell shown(whole);
    PasteLabel(shown.document, whole, LabelNg1);
    shown.cell->UpdateLabelButtons();
    EXPECT_THAT(shown.Labels(), ElementsAre(LabelNg1));
    QTest::mouseClick(shown.Button(LabelOk), Qt::LeftButton);
    EXPECT_THAT(shown.Told(), ElementsAre("paste 0", clicked));
    QTest::keyClick(shown.Button(LabelNg1), Qt::Key_Space);
    EXPECT_THAT(shown.Told(), ElementsAre("remove 1", clicked));
    for (const bool isPasted : {false, true}) {
        if (isPasted) PasteLabel(shown.document, whole, LabelComment);
        shown.cell->UpdateLabelButtons();
        QTest::mouseClick(shown.Button(LabelComment), Qt::LeftButton);
        EXPECT_THAT(shown.Told(), ElementsAre("paste 4", clicked));
        EXPECT_EQ(shown.Button(LabelComment)->IsPressed(), isPasted) << "only a comment brings it";
    }
}

TEST(SpiCtrl, EditsNoCommentInSlideMode)
{
    ShownCell shown(whole);
    SetSlideMode(true);
    QTest::mouseClick(shown.Button(LabelComment), Qt::LeftButton);
    SetSlideMode(false);
    EXPECT_EQ(shown.sample.services.user.Messages().GetSize(), 1);
    EXPECT_THAT(shown.Labels(), IsEmpty());
    EXPECT_FALSE(shown.document.IsCheckStatusChanged());
    EXPECT_THAT(shown.Told(), IsEmpty());
}

TEST(SpiCtrl, ShowsSelectionAndFactsOnThePlate)
{
    ShownCell shown(whole);
    const auto background = [&] { return shown.Plate()->grab().toImage().pixelColor(2, 24); };
    EXPECT_EQ(background(), QColor(226, 208, 179));
    shown.Photo().Select(true);
    shown.cell->InvalidateNamePlate();
    EXPECT_EQ(background(), QColor(114, 70, 46));

    auto* const drawings = shown.Find<GaluMultiStatusButton>(idPhotoMark);
    EXPECT_EQ(drawings->GetStatus(), shown.Photo().GetPictureCount() > 0 ? 1 : 0);
    const ToviPhoto::EditJPEGCheckResult results[] = {
        ToviPhoto::EditCheckNone, ToviPhoto::EditCheckUnaltered, ToviPhoto::EditCheckAltered,
        ToviPhoto::EditCheckUnknown};
    std::vector<int> marks;
    for (const auto result : results) {
        shown.Photo().SetEditChkResult(result);
        shown.Show(whole);
        marks.push_back(shown.Find<GaluMultiStatusButton>(idCheckMark)->GetStatus());
    }
    EXPECT_THAT(marks, ElementsAre(0, 1, 2, 0));
}

TEST(SpiCtrl, TellsALongTitleWholeInTheTipWithoutObeyingIt)
{
    ShownCell shown(titled);
    const CString tip = shown.Plate()->toolTip().toStdString();
    EXPECT_THAT(tip, testing::HasSubstr(LongTitle().substr(LongTitle().find("掘削"))));
    EXPECT_THAT(tip, testing::Not(testing::HasSubstr("<img")));
}

TEST(SpiCtrl, TakesTheStripOfACommentForAPartOfItself)
{
    ShownCell shown(whole);
    ToviCommentWindow strip;
    strip.Create("確認", {0, 0, 373, 30}, shown.cell.get(), 1136, 0);
    strip.ShowIfAny(true);
    QObject::connect(&strip, &ToviCommentWindow::Clicked, shown.cell.get(),
                     &ToviSpiCtrl::OnCommentWindowClicked);
    QObject::connect(&strip, &ToviCommentWindow::DoubleClicked, shown.cell.get(),
                     &ToviSpiCtrl::OnCommentWindowDblClicked);
    QTest::mouseClick(&strip, Qt::LeftButton);
    EXPECT_THAT(shown.Told(), ElementsAre(clicked));
    EXPECT_TRUE(strip.hasFocus());
    QTest::mouseDClick(&strip, Qt::LeftButton);
    EXPECT_THAT(shown.Told(), Contains("paste 4"));
}

TEST(SpiCtrl, NamesTheLabelsAsTheUserDoes)
{
    ShownCell shown(whole);
    shown.document.GetLabelManager()->GetLabelAttribute(LabelNg2).SetName("再撮影");
    shown.cell->ApplyLabelNames();
    EXPECT_EQ(FromQtText(shown.Button(LabelNg2)->accessibleName()), "再撮影");
    EXPECT_THAT(shown.Button(LabelNg2)->toolTip().toStdString(), testing::HasSubstr("再撮影"));
}
} // namespace
