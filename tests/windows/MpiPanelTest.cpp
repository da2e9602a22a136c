#include "platform/controls/GaluMultiStatusButton.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WindowId.h"
#include "windows/cell/CellChild.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/loader/FileLoader.h"
#include "windows/ShownDelivery.h"
#include "windows/zoom/ToviMultiDlg.h"
#include "work/ReadingLimit.h"

#include <QAbstractItemView>

#include <filesystem>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;
using testing::IsEmpty;

/// The page is what the arithmetic of \p photos says, with the selected photograph on it.
void ExpectSoundPage(ShownDelivery& shown, int cells, int photos)
{
    ASSERT_EQ(shown.Cells().size(), cells);
    EXPECT_EQ(shown.panel.GetTotalPage(), (photos + cells - 1) / cells);
    const int first = (shown.panel.GetCurrentPage() - 1) * cells;
    for (int cell = 0; cell < cells; ++cell) {
        const int position = first + cell < photos ? first + cell : -1;
        EXPECT_EQ(shown.Positions()[static_cast<std::size_t>(cell)], position);
    }
    EXPECT_EQ(shown.panel.GetCountInPage(), std::min(cells, photos - first));
    if (photos == 0) return;
    EXPECT_EQ(first + shown.panel.GetSelectIndexInPage(), shown.Selected());
    EXPECT_EQ(shown.CountSelected(), 1);
}

TEST(MpiPanel, MovesThroughEverySetByKey)
{
    constexpr int onPage[] = {1, 2, 3, 4, 6};
    ShownDelivery shown(13, Setting::DivideOne);
    for (int mode = Setting::DivideOne; mode <= Setting::DivideSix; ++mode) {
        shown.SetMode(static_cast<Setting::DivideType>(mode));
        for (const int photos : {0, 1, 6, 7, 13}) {
            SCOPED_TRACE(testing::Message() << photos << " photographs in mode " << mode);
            const auto expectSound = [&] { ExpectSoundPage(shown, onPage[mode], photos); };
            shown.ShowFirst(photos);
            expectSound();
            while (shown.Selected() > 0) shown.panel.OperatePrevPhoto();
            shown.panel.setFocus();
            for (int photo = 0; photo <= photos; ++photo) {
                EXPECT_EQ(shown.Selected(), photos == 0 ? -1 : std::min(photo, photos - 1));
                shown.Press(Qt::Key_Down);
                expectSound();
            }
            for (const int key : {Qt::Key_PageDown, Qt::Key_Right, Qt::Key_Left, Qt::Key_PageUp,
                                  Qt::Key_PageUp, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
                shown.Press(key, Qt::ControlModifier);
                expectSound();
            }
        }
    }
}

TEST(MpiPanel, TakesTheFocusAlongWithTheSelection)
{
    DeliveryBuilder delivery({.photos = 13, .drawings = 0, .images = false});
    for (int photo = 0; photo < 13; ++photo)
        delivery.Set(photo, "施工管理値", "幅:設計値 100・実測値 98・差 -2");
    ShownDelivery shown(delivery, Setting::DivideSix);
    EXPECT_EQ(QApplication::focusWidget(), &shown.Plate(0));
    const std::tuple<const char*, int, std::function<void()>> moves[] = {
        {"right", 4, [&] { shown.Press(Qt::Key_Right, Qt::ControlModifier); }},
        {"next page", 6, [&] { shown.panel.OperateNextPage(); }},
        {"last page", 12, [&] { shown.panel.OperateLastPage(); }},
        {"next photograph", 2, [&] { shown.panel.OperateNextPhoto(); }},
        {"next unchecked", 2, [&] { shown.panel.SelectNextUnchecked(); }},
        {"page down", 6, [&] { shown.Press(Qt::Key_PageDown, Qt::ControlModifier); }}};
    // A table and a text take turns in one place while the page is filled.
    for (const int child : {int{idNamePlate}, idFirstLabel + 1, int{idValueTable}}) {
        for (const auto& [name, target, move] : moves) {
            SCOPED_TRACE(name);
            shown.panel.OperateTopPage();
            shown.Click(1);
            shown.Cells()[1]->FocusChild(child);
            ASSERT_EQ(shown.Selected(), 1);
            move();
            const int selected = shown.Selected();
            const int cell = shown.panel.GetSelectIndexInPage();
            EXPECT_EQ(selected, target);
            EXPECT_TRUE(shown.Cells()[cell]->isAncestorOf(QApplication::focusWidget()));
            // On another page a button gives way to the plate.
            const bool isSamePart = WindowId(QApplication::focusWidget()) == child;
            EXPECT_TRUE(isSamePart || child == idValueTable || selected >= 6);
            // The focus that a menu or another window gives back selects nothing.
            for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
                QFocusEvent event(QEvent::FocusIn, reason);
                QApplication::sendEvent(&shown.Plate((cell + 1) % 6), &event);
                EXPECT_EQ(shown.Selected(), selected);
            }
        }
    }
    shown.SetMode(Setting::DivideFour);
    EXPECT_TRUE(shown.panel.isAncestorOf(QApplication::focusWidget()));

    const std::function<void()> ends[] = {
        [&] { shown.panel.RemoveLabel(LabelComment); }, [&] { shown.panel.OperateNextPage(); },
        [&] { shown.Set([](Setting& setting) { setting.SetVisibleComment(false); }); }};
    for (const auto& end : ends) {
        shown.panel.OperateTopPage();
        shown.AnswerComment("確認");
        shown.panel.PasteLabel(LabelComment);
        auto* const strip = shown.Cells()[0]->findChild<ToviCommentWindow*>();
        QTest::mouseClick(strip, Qt::LeftButton);
        ASSERT_EQ(shown.window.focusWidget(), strip);
        end();
        EXPECT_TRUE(shown.panel.isAncestorOf(shown.window.focusWidget())) << "the strip has gone";
    }
}

TEST(MpiPanel, SelectsByWhateverIsClickedOrHasTheFocus)
{
    ShownDelivery shown(4, Setting::DivideFour);
    shown.Set([](Setting& setting) { setting.SetImageTextArrange(Setting::TextBeside); });
    const auto list = [&shown](int cell) {
        return shown.Cells()[cell]->findChild<ToviSpiListCtrl*>()->View();
    };
    const std::function<QWidget*(int)> parts[] = {
        [&](int cell) { return shown.Cells()[cell]->findChild<LumImgWnd*>(); },
        [&](int cell) { return shown.Cells()[cell]->findChild<GaluMultiStatusButton*>(); },
        [&](int cell) { return list(cell)->viewport(); },
        [&](int cell) { return &shown.Plate(cell); }};
    for (const auto& part : parts) {
        for (const int cell : {3, 0}) {
            QTest::mouseClick(part(cell), Qt::LeftButton, {}, {10, 10});
            EXPECT_EQ(shown.Selected(), cell);
        }
    }
    for (const int child : {idNamePlate, idInfoList, idImage}) {
        for (const int cell : {1, 2}) {
            shown.Cells()[cell]->FocusChild(child);
            EXPECT_EQ(shown.Selected(), cell) << child;
        }
    }
    list(2)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(list(2), Qt::Key_Down);
    EXPECT_EQ(shown.Selected(), 2) << "the key moves in the list";
    QTest::keyClick(list(2), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(shown.Selected(), 3);
    QTest::keyClick(&shown.Plate(3), Qt::Key_Up);
    EXPECT_EQ(shown.Selected(), 2);
}

TEST(MpiPanel, TellsOfPagesModesAndZooms)
{
    ShownDelivery shown(7, Setting::DivideFour);
    shown.pagesTold.clear();
    shown.modesTold.clear();
    for (int time = 0; time < 2; ++time) {
        shown.panel.OperateNextPage();
        EXPECT_EQ(shown.pagesTold.count(), 1) << "there is nothing behind the last page";
    }
    shown.panel.OperatePrevPhoto();
    EXPECT_EQ(shown.pagesTold.count(), 2);
    EXPECT_EQ(shown.Selected(), 3);
    EXPECT_EQ(shown.modesTold.count(), 0);
    for (int time = 0; time < 2; ++time) {
        shown.SetMode(Setting::DivideSix);
        EXPECT_EQ(shown.modesTold.count(), 1);
    }
    EXPECT_EQ(shown.Selected(), 3) << "the mode leaves the selection";
    shown.panel.OperateLastPage();
    EXPECT_EQ(shown.Selected(), 6);
    shown.panel.OperateTopPage();
    shown.Click(4);
    EXPECT_EQ(shown.Selected(), 4);
    QTest::mouseDClick(&shown.Plate(4), Qt::LeftButton, {}, QPoint(10, 10));
    ASSERT_EQ(shown.panel.Zooms().All().size(), 1);
    EXPECT_EQ(shown.panel.Zooms().All()[0]->GetPath(), shown.Photo(4).GetImagePath());
    shown.panel.Detach();
    EXPECT_EQ(shown.panel.GetTotalPage(), 0);
    EXPECT_THAT(shown.Cells(), IsEmpty());
    shown.panel.OperateNextPage();
    shown.panel.ToggleLabel(LabelOk);
    EXPECT_FALSE(shown.panel.SelectNextUnchecked());
}

TEST(MpiPanel, FollowsTheSetThatTheTreeShows)
{
    ShownDelivery shown(13, Setting::DivideFour);
    for (int page = 1; page < 3; ++page) shown.panel.OperateNextPage();
    EXPECT_THAT(shown.Positions(), ElementsAre(8, 9, 10, 11));
    const ToviPhoto* const selected = shown.data->GetSelectedPhoto();
    shown.ShowFirst(13);
    EXPECT_EQ(shown.data->GetSelectedPhoto(), selected) << "still in the set";
    ExpectSoundPage(shown, 4, 13);
    shown.ShowFirst(5);
    EXPECT_EQ(shown.panel.GetCurrentPage(), 1) << "the selected photograph has left the set";
    ExpectSoundPage(shown, 4, 5);
    shown.panel.OperateLastPage();
    shown.Click(3);
    EXPECT_EQ(shown.Selected(), 4) << "an empty cell";
    shown.data->SetSelected(-1);
    ExpectSoundPage(shown, 4, 0);
    shown.panel.ToggleLabel(LabelOk);
    EXPECT_EQ(shown.data->CountLabel(LabelOk), 0) << "of a photograph that nobody sees";
    shown.data->SetSelected(shown.data.get(), true);
    ExpectSoundPage(shown, 4, 13);
}

TEST(MpiPanel, WalksThroughTheThumbnails)
{
    ShownDelivery shown(200, Setting::DivideFour);
    for (int page = 1; page < 26; ++page) shown.panel.OperateNextPage();
    shown.SetMode(Setting::DivideThumbnails);
    auto* const list = shown.panel.findChild<ToviPhotoListCtrl*>();
    const auto isInSight = [&] {
        return list->View()->viewport()->rect().intersects(list->GetItemRect(shown.Selected()));
    };
    ASSERT_EQ(shown.Selected(), 100);
    EXPECT_TRUE(isInSight());
    for (const int width : {600, 1000, 400}) {
        shown.panel.resize(width, 700);
        EXPECT_TRUE(QTest::qWaitFor(isInSight, 1000)) << width;
        QTest::qWait(150);
        EXPECT_TRUE(isInSight()) << width;
    }
    for (const int photos : {0, 1, 7}) {
        SCOPED_TRACE(testing::Message() << photos << " photographs");
        shown.ShowFirst(photos);
        EXPECT_THAT(shown.Cells(), IsEmpty());
        shown.panel.setFocus();
        for (int step = 0; step < photos; ++step) shown.Press(Qt::Key_Left);
        for (int photo = 0; photo <= photos; ++photo) {
            EXPECT_EQ(shown.Selected(), photos == 0 ? -1 : std::min(photo, photos - 1));
            shown.Press(Qt::Key_Right);
        }
        shown.panel.OperatePrevPhoto();
        EXPECT_EQ(shown.Selected(), photos == 0 ? -1 : std::max(0, photos - 2));
    }
}

TEST(MpiPanel, ReleasesThePicturesOfManyPhotographs)
{
    constexpr int photos = 300;
    ShownDelivery shown(photos, Setting::DivideFour);
    PictureMemory::Save(PictureMemory::smallest);
    shown.SetMode(Setting::DivideSix);
    const CString picture = shown.temp.Path("picture.jpg");
    QImage image(1200, 900, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    ASSERT_TRUE(image.save(QtText(picture)));
    for (int position = 0; position < photos; ++position) {
        shown.Photo(position).ReleaseImage();
        std::filesystem::create_hard_link(picture, shown.Photo(position).GetImagePath());
    }
    const auto loaded = [&shown] {
        int count = 0;
        for (int position = 0; position < photos; ++position)
            count += shown.Photo(position).GetImage().GetWidth() > 0;
        return count;
    };
    for (int page = 1; page < shown.panel.GetTotalPage(); ++page) {
        shown.Press(Qt::Key_PageDown);
        ASSERT_EQ(shown.panel.GetCurrentPage(), page + 1);
        ASSERT_LE(loaded(), 6);
        ASSERT_LE(FileLoader::Ours().BytesInHand(), PictureMemory::LoadInBytes());
        // Now and then the key is let go for long enough to load the full pictures.
        if (page % 20 == 0) QTest::qWait(250);
    }
    shown.SetMode(Setting::DivideOne);
    EXPECT_LE(loaded(), 1);
    shown.panel.Detach();
    EXPECT_EQ(loaded(), 0);
}
} // namespace
