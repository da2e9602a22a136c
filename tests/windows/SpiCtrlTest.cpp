#include "platform/controls/GaluDSplitter.h"
#include "platform/controls/GaluMultiStatusButton.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"
#include "windows/cell/CellChild.h"
#include "windows/cell/ToviControlValueTable.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/cell/ToviNamePlate.h"
#include "windows/cell/ToviSpiCtrl.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/loader/FileLoader.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>

#include <filesystem>

namespace
{
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

/// The delivery of these tests: what is wrong with its photographs.
constexpr int whole = 0, missing = 1, broken = 2, titled = 3, beyond = 4;

DeliveryBuilder Delivery()
{
    DeliveryBuilder delivery({.photos = 4, .drawings = 1});
    delivery.Set(whole, "写真タイトル", "着手前");
    delivery.Set(whole, "施工管理値",
                 "幅:設計値 100・実測値 98・差 -2、厚:設計値 5・実測値 6・差 1");
    delivery.Remove(missing, "施工管理値");
    delivery.Set(broken, "施工管理値", "幅:1・2");
    delivery.Set(titled, "写真タイトル", "<img src=\"/etc/passwd\">掘削状況");
    return delivery;
}

/// A cell over that delivery.
struct ShownCell
{
    explicit ShownCell(int photo)
    {
        document.Load();
        setting = document.GetVisualSetting();
        std::filesystem::remove(sample.Photo(missing).GetImagePath());
        std::ofstream(sample.Photo(broken).GetImagePath()) << "no picture";
        cell = std::make_unique<ToviSpiCtrl>(&document, nullptr, &setting, 100, &window);
        window.resize(640, 480);
        cell->resize(640, 480);
        window.show();
        window.activateWindow();
        Show(photo);
        QTest::qWait(0);
    }

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
    ToviControlValueTable* Table() { return Find<ToviControlValueTable>(idValueTable); }
    QPlainTextEdit* Edit() { return Find<QPlainTextEdit>(idValueEdit); }
    ToviLabelButton* Button(unsigned int label) { return Plate()->Button(label); }
    int Mark(int id) { return Find<GaluMultiStatusButton>(id)->GetStatus(); }
    bool WaitForFullPicture()
    {
        return QTest::qWaitFor([this] { return Photo().IsImageLoaded(); }, 5000);
    }

    OpenedSample sample{Delivery()};
    ToviData& document = *sample.document;
    ToviPhotoCtrlVisualSetting setting;
    QWidget window;
    std::unique_ptr<ToviSpiCtrl> cell;
};

TEST(SpiCtrl, ShowsPictures)
{
    std::vector<int> sides;
    const QObject here;
    QObject::connect(&FileLoader::Ours(), &FileLoader::Arrived, &here, [&](const LoadKey& key) {
        if (key.kind == LoadKind::Picture) sides.push_back(key.side);
    });
    ShownCell shown(whole);
    ASSERT_TRUE(shown.WaitForFullPicture());
    EXPECT_THAT(sides, ElementsAre(LumImage::thumbSide, 0)) << "the thumbnail comes first";
    EXPECT_TRUE(shown.Image()->IsEnableImage());
    QTest::keyClick(shown.Image(), Qt::Key_Plus);
    const double zoom = shown.Image()->View().Zoom();
    shown.Show(whole);
    EXPECT_EQ(shown.Image()->View().Zoom(), zoom) << "the user looks at it";
    for (const int next : {titled, beyond}) {
        ToviPhoto& before = shown.Photo();
        ASSERT_TRUE(shown.WaitForFullPicture());
        shown.Show(next);
        EXPECT_FALSE(before.GetImage().IsValid()) << "released";
        EXPECT_TRUE(shown.Image()->View().IsFit());
    }
    for (const int unreadable : {missing, broken}) {
        shown.Show(unreadable);
        EXPECT_FALSE(shown.FailPlate()->isVisible());
        ASSERT_TRUE(QTest::qWaitFor([&] { return shown.FailPlate()->isVisible(); }, 5000));
        EXPECT_FALSE(shown.Image()->isVisible());
        EXPECT_EQ(shown.FailPlate()->geometry(), shown.Image()->geometry());
        for (const int child : {idNamePlate, idImage}) shown.cell->FocusChild(child);
        EXPECT_TRUE(shown.FailPlate()->hasFocus());
        shown.Show(whole);
        EXPECT_TRUE(shown.Image()->isVisible() && shown.Image()->hasFocus());
    }
}

TEST(SpiCtrl, TellsItemsControlValuesAndTitle)
{
    ShownCell shown(whole);
    EXPECT_TRUE(shown.Table()->isVisible() && !shown.Edit()->isVisible());
    EXPECT_EQ(shown.Table()->GetItemCount(), 2);
    EXPECT_EQ(shown.Table()->GetItemText(1, 3), "1");
    EXPECT_EQ(shown.Plate()->GetTitle(), "着手前");
    shown.cell->FocusChild(idValueTable);
    shown.Show(broken);
    EXPECT_TRUE(shown.Edit()->hasFocus() && !shown.Table()->isVisible());
    EXPECT_EQ(FromQtText(shown.Edit()->toPlainText()), "幅:1・2");
    for (const int child : {idNamePlate, idValueTable}) shown.cell->FocusChild(child);
    EXPECT_TRUE(shown.Edit()->hasFocus());
    shown.Show(whole);
    EXPECT_TRUE(shown.Table()->hasFocus()) << "the focus stays in the place";
    shown.Show(titled);
    const CString tip = shown.Plate()->toolTip().toStdString();
    EXPECT_THAT(tip, HasSubstr("掘削"));
    EXPECT_THAT(tip, testing::Not(HasSubstr("<img")));

    // What each kind of item is by its colour is the matter of ItemColours.
    const auto isColoured = [&shown](const CString& title, int column) {
        const QAbstractItemModel& model = *shown.List()->View()->model();
        int row = 0;
        while (row < model.rowCount() && shown.List()->GetItemText(row, 0) != title) ++row;
        return model.data(model.index(row, column), Qt::ForegroundRole).isValid();
    };
    EXPECT_TRUE(isColoured("写真タイトル", 0) && isColoured("撮影日時", 0));
    EXPECT_FALSE(isColoured("写真タイトル", 1));
    shown.cell->FillInfo();
    EXPECT_FALSE(isColoured("撮影日時", 0)) << "until the next photograph";
    shown.document.GetLabelManager()->GetLabelAttribute(LabelNg2).SetName("再撮影");
    shown.cell->ApplyLabelNames();
    EXPECT_EQ(FromQtText(shown.Button(LabelNg2)->accessibleName()), "NG2 再撮影");
}

TEST(SpiCtrl, GivesItsPartsTheirRoom)
{
    ShownCell shown(whole);
    const int imageHeight = shown.Image()->height();
    SetComment(shown.document, whole, "確認");
    shown.cell->LayoutChildren();
    EXPECT_LT(shown.Image()->height(), imageHeight) << "a strip takes room";
    auto* const splitter = shown.Find<GaluDSplitter>(idSplitter);
    const int listHeight = shown.List()->height();
    QTest::keyClick(splitter->handle(1), Qt::Key_Up);
    EXPECT_LT(shown.List()->height(), listHeight);
    const int moved = splitter->GetPane(1)->height();
    shown.Show(titled);
    EXPECT_EQ(splitter->GetPane(1)->height(), moved);
    shown.Show(whole);
    ToviItemShowSettings& items = shown.setting.GetItemShowSettings();
    items[items.Find("施工管理値")].Bold(false);
    shown.cell->FillInfo();
    EXPECT_FALSE(splitter->GetPane(1)->isVisible());
    shown.setting.SetVisibleComment(false);
    shown.setting.SetImageTextArrange(ToviPhotoCtrlVisualSetting::TextHidden);
    shown.cell->LayoutChildren();
    EXPECT_EQ(shown.cell->GetImageSize(), QSize(640, imageHeight));
    EXPECT_FALSE(shown.List()->isVisible());
}

TEST(SpiCtrl, IsEmptyBehindTheLastPhotograph)
{
    ShownCell shown(whole);
    shown.Button(LabelOk)->setFocus();
    shown.Show(beyond);
    EXPECT_EQ(shown.cell->GetPhotoIndex(), -1);
    EXPECT_FALSE(shown.Image()->IsEnableImage() || shown.Button(LabelOk)->isVisible());
    EXPECT_EQ(shown.List()->GetItemCount() + shown.Table()->GetItemCount(), 0);
    EXPECT_EQ(shown.Plate()->GetTitle(), "");
    EXPECT_TRUE(shown.Plate()->hasFocus());
    const QSignalSpy clicked(shown.cell.get(), &ToviSpiCtrl::Clicked);
    QTest::mouseClick(shown.Plate(), Qt::LeftButton);
    QTest::qWait(200);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_FALSE(shown.FailPlate()->isVisible());
}

TEST(SpiCtrl, ShowsSelectionAndFactsOnThePlate)
{
    ShownCell shown(whole);
    const auto background = [&] { return shown.Plate()->grab().toImage().pixelColor(2, 24); };
    const QColor plain = background();
    shown.Photo().Select(true);
    shown.cell->InvalidateNamePlate();
    EXPECT_NE(background(), plain);
    std::vector<int> marks;
    for (const auto result : {ToviPhoto::EditCheckAltered, ToviPhoto::EditCheckUnaltered,
                              ToviPhoto::EditCheckAltered, ToviPhoto::EditCheckUnknown}) {
        shown.Photo().SetEditChkResult(result);
        shown.Show(whole);
        marks.push_back(shown.Mark(idCheckMark));
    }
    EXPECT_THAT(marks, ElementsAre(2, 1, 2, 0));
    std::vector<int> drawings;
    for (const int photo : {whole, missing, broken, titled}) {
        shown.Show(photo);
        EXPECT_EQ(shown.Mark(idPhotoMark), shown.Photo().GetPictureCount() > 0);
        drawings.push_back(shown.Mark(idPhotoMark));
    }
    EXPECT_THAT(drawings, testing::AllOf(Contains(0), Contains(1)));
}
} // namespace
