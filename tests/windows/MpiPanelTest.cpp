#include "platform/controls/WindowId.h"
#include "windows/cell/CellChild.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/ShownDelivery.h"
#include "windows/zoom/ToviMultiDlg.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QLabel>

#include <filesystem>
#include <fstream>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Setting::DivideType pagedModes[] = {Setting::DivideOne, Setting::DivideTwo,
                                              Setting::DivideThree, Setting::DivideFour,
                                              Setting::DivideSix};
constexpr int onPage[] = {1, 2, 3, 4, 6};

/// The page is what the arithmetic of \p photos says, with the selected photograph on it.
void ExpectSoundPage(ShownDelivery& shown, int mode, int photos)
{
    const int cells = onPage[mode];
    ASSERT_EQ(static_cast<int>(shown.Cells().size()), cells);
    EXPECT_EQ(shown.panel.GetTotalPage(), (photos + cells - 1) / cells);
    const int first = (shown.panel.GetCurrentPage() - 1) * cells;
    for (int cell = 0; cell < cells; ++cell) {
        const int position = first + cell < photos ? first + cell : -1;
        EXPECT_EQ(shown.Positions()[static_cast<std::size_t>(cell)], position);
    }
    EXPECT_EQ(shown.panel.GetCountInPage(), std::min(cells, photos - first));
    if (photos == 0) return;
    EXPECT_EQ(first + shown.panel.GetSelectIndexInPage(), shown.Selected());
    EXPECT_EQ(shown.panel.GetTopPosIndex(), shown.Selected());
}

TEST(MpiPanel, MovesThroughEverySetByKey)
{
    ShownDelivery shown(13, Setting::DivideOne);
    for (const Setting::DivideType mode : pagedModes) {
        shown.SetMode(mode);
        for (const int photos : {0, 1, 6, 7, 13}) {
            SCOPED_TRACE(testing::Message() << photos << " photographs in mode " << mode);
            shown.ShowFirst(photos);
            ExpectSoundPage(shown, mode, photos);
            while (shown.Selected() > 0) shown.panel.OperatePrevPhoto();
            shown.panel.setFocus();
            for (int photo = 0; photo <= photos; ++photo) {
                EXPECT_EQ(shown.Selected(), photos == 0 ? -1 : std::min(photo, photos - 1));
                shown.Press(Qt::Key_Down);
                ExpectSoundPage(shown, mode, photos);
            }
            for (const int key :
                 {Qt::Key_PageDown, Qt::Key_Right, Qt::Key_Home, Qt::Key_Left, Qt::Key_PageUp,
                  Qt::Key_PageUp, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right, Qt::Key_End}) {
                shown.Press(key, Qt::ControlModifier);
                ExpectSoundPage(shown, mode, photos);
            }
        }
    }
}

TEST(MpiPanel, KeepsTheFocusInTheSamePartOfACell)
{
    DeliveryBuilder delivery({.photos = 8, .drawings = 0, .images = false});
    for (int photo = 0; photo < 8; ++photo)
        delivery.Set(photo, "施工管理値", "幅:設計値 100・実測値 98・差 -2");
    ShownDelivery shown(delivery, Setting::DivideFour);
    const auto focused = [] { return WindowId(QApplication::focusWidget()); };
    EXPECT_EQ(focused(), idNamePlate);
    shown.Plate(0).Button(LabelNg1)->setFocus();
    shown.Press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(focused(), idFirstLabel + static_cast<int>(LabelNg1));
    EXPECT_TRUE(shown.Cells()[2]->isAncestorOf(QApplication::focusWidget()));
    shown.Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_TRUE(shown.Cells()[0]->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(shown.Selected(), 4);

    // A table and a text take turns in one place while the page is filled.
    shown.Press(Qt::Key_PageUp, Qt::ControlModifier);
    shown.Click(3);
    shown.Cells()[3]->FocusChild(idValueTable);
    EXPECT_EQ(shown.Selected(), 3);
    shown.Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(shown.Selected(), 4);
    shown.SetMode(Setting::DivideSix);
    EXPECT_TRUE(shown.panel.isAncestorOf(QApplication::focusWidget()));
}

TEST(MpiPanel, TakesTheFocusAlongWithTheSelection)
{
    ShownDelivery shown(13, Setting::DivideSix);
    const std::pair<const char*, std::function<void()>> moves[] = {
        {"next page", [&] { shown.panel.OperateNextPage(); }},
        {"last page", [&] { shown.panel.OperateLastPage(); }},
        {"next photograph", [&] { shown.panel.OperateNextPhoto(); }},
        {"next unchecked", [&] { shown.panel.SelectNextUnchecked(); }}};
    for (const auto& [name, move] : moves) {
        SCOPED_TRACE(name);
        shown.panel.OperateTopPage();
        shown.Cells()[4]->FocusChild(idNamePlate);
        ASSERT_EQ(shown.Selected(), 4);
        move();
        const int selected = shown.Selected();
        const int cell = shown.panel.GetSelectIndexInPage();
        EXPECT_NE(selected, 4);
        EXPECT_EQ(QApplication::focusWidget(), &shown.Plate(cell));
        // The focus that a menu or another window gives back selects nothing.
        for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
            QFocusEvent event(QEvent::FocusIn, reason);
            QApplication::sendEvent(&shown.Plate((cell + 1) % 6), &event);
            EXPECT_EQ(shown.Selected(), selected);
        }
    }
}

TEST(MpiPanel, KeepsTheFocusWhenAStripGoes)
{
    ShownDelivery shown(13, Setting::DivideSix);
    const std::function<void()> ends[] = {
        [&] { shown.panel.RemoveLabel(LabelComment); }, [&] { shown.panel.OperateNextPage(); },
        [&] { shown.Set([](Setting& setting) { setting.SetVisibleComment(false); }); }};
    for (const auto& end : ends) {
        shown.panel.OperateTopPage();
        shown.AnswerComment("確認");
        shown.panel.PasteLabel(LabelComment);
        auto* const strip = shown.Cells()[0]->findChild<ToviCommentWindow*>();
        ASSERT_TRUE(strip->isVisible());
        QTest::mouseClick(strip, Qt::LeftButton);
        ASSERT_EQ(shown.window.focusWidget(), strip);
        end();
        EXPECT_TRUE(shown.panel.isAncestorOf(shown.window.focusWidget()));
    }
}

TEST(MpiPanel, ShowsTheSelectedPhotographInTheListWhateverItsWidth)
{
    ShownDelivery shown(200, Setting::DivideFour);
    for (int page = 1; page < 26; ++page) shown.panel.OperateNextPage();
    shown.Set([](Setting& setting) { setting.SetDivType(Setting::DivideThumbnails); });
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
}

TEST(MpiPanel, TellsOfPagesAndModes)
{
    ShownDelivery shown(7, Setting::DivideFour);
    shown.pagesTold.clear();
    shown.modesTold.clear();
    shown.panel.OperateNextPage();
    EXPECT_EQ(shown.pagesTold.count(), 1);
    shown.panel.OperateNextPage();
    EXPECT_EQ(shown.pagesTold.count(), 1) << "there is nothing behind the last page";
    EXPECT_EQ(shown.panel.GetCurrentPage(), 2);
    shown.panel.OperatePrevPhoto();
    EXPECT_EQ(shown.pagesTold.count(), 2);
    EXPECT_EQ(shown.Selected(), 3);
    EXPECT_EQ(shown.modesTold.count(), 0);
    shown.SetMode(Setting::DivideSix);
    EXPECT_EQ(shown.modesTold.count(), 1);
    EXPECT_EQ(shown.Selected(), 3) << "the mode leaves the selection";
    shown.panel.OperateLastPage();
    EXPECT_EQ(shown.Selected(), 6);
    shown.panel.OperateNextPhoto();
    EXPECT_EQ(shown.Selected(), 6);
    shown.panel.OperateTopPage();
    EXPECT_EQ(shown.Selected(), 0);
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
    ExpectSoundPage(shown, Setting::DivideFour, 13);

    shown.panel.OperateLastPage();
    shown.ShowFirst(5);
    EXPECT_EQ(shown.panel.GetCurrentPage(), 1) << "the selected photograph has left the set";
    ExpectSoundPage(shown, Setting::DivideFour, 5);

    shown.panel.OperateLastPage();
    shown.panel.RemoveLabel(LabelFree);
    shown.data->SetSelected(static_cast<int>(LabelFree));
    ExpectSoundPage(shown, Setting::DivideFour, 4);

    shown.data->SetSelected(-1);
    ExpectSoundPage(shown, Setting::DivideFour, 0);
    shown.panel.ToggleLabel(LabelOk);
    EXPECT_EQ(shown.data->CountLabel(LabelOk), 0) << "of a photograph that nobody sees";
    shown.data->SetSelected(shown.data.get(), true);
    ExpectSoundPage(shown, Setting::DivideFour, 13);
}

TEST(MpiPanel, SelectsByMouseAndShowsLarge)
{
    ShownDelivery shown(6, Setting::DivideSix);
    shown.Click(4);
    EXPECT_EQ(shown.Selected(), 4);
    QTest::mouseDClick(&shown.Plate(4), Qt::LeftButton, {}, QPoint(10, 10));
    ASSERT_EQ(shown.panel.Zooms().All().size(), 1);
    EXPECT_EQ(shown.panel.Zooms().All()[0]->GetPath(), shown.Photo(4).GetImagePath());
    shown.ShowFirst(3);
    const int selected = shown.Selected();
    shown.Click(5);
    EXPECT_EQ(shown.Selected(), selected) << "an empty cell";
}

TEST(MpiPanel, WalksThroughTheThumbnails)
{
    ShownDelivery shown(9, Setting::DivideThumbnails);
    for (const int photos : {9, 0, 1, 6, 7}) {
        SCOPED_TRACE(testing::Message() << photos << " photographs");
        shown.ShowFirst(photos);
        EXPECT_EQ(shown.panel.GetCurrentPage(), 1);
        EXPECT_EQ(shown.panel.GetTotalPage(), 1);
        EXPECT_THAT(shown.Cells(), IsEmpty());
        shown.panel.setFocus();
        for (int step = 0; step < photos; ++step) shown.Press(Qt::Key_Left);
        for (int photo = 0; photo <= photos; ++photo) {
            EXPECT_EQ(shown.Selected(), photos == 0 ? -1 : std::min(photo, photos - 1));
            shown.Press(Qt::Key_Right);
        }
        for (const int key : {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End})
            shown.Press(key);
        EXPECT_EQ(shown.Selected(), photos - 1);
        shown.panel.OperatePrevPhoto();
        EXPECT_EQ(shown.Selected(), photos == 0 ? -1 : std::max(0, photos - 2));
    }
}

/// The resident memory of this program, in MB.
long Resident()
{
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return resident * 4096 / 1000000;
}

TEST(MpiPanel, ReleasesThePicturesOfAThousandPhotographs)
{
    constexpr int photos = 1000;
    ShownDelivery shown(photos, Setting::DivideSix);
    const CString picture = shown.temp.Path("picture.jpg");
    QImage image(1200, 900, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    ASSERT_TRUE(image.save(QtText(picture)));
    for (int position = 0; position < photos; ++position) {
        ToviPhoto& photo = shown.Photo(position);
        photo.ReleaseImage();
        std::filesystem::create_hard_link(picture, photo.GetImagePath());
    }
    const auto loaded = [&shown] {
        int count = 0;
        for (int position = 0; position < photos; ++position)
            count += shown.Photo(position).GetImage().GetWidth() > 0;
        return count;
    };
    shown.panel.OperateNextPage();
    QTest::qWait(400);
    [[maybe_unused]] const long before = Resident();
    const int last = shown.panel.GetTotalPage();
    for (int page = 2; page < last; ++page) {
        shown.Press(Qt::Key_PageDown);
        ASSERT_EQ(shown.panel.GetCurrentPage(), page + 1);
        ASSERT_LE(loaded(), 6);
        // Now and then the key is let go for long enough to load the full pictures.
        if (page % 40 == 0) QTest::qWait(250);
    }
#ifndef __SANITIZE_ADDRESS__ // It keeps released memory aside.
    EXPECT_LT(Resident() - before, 200);
#endif
    shown.SetMode(Setting::DivideOne);
    EXPECT_LE(loaded(), 1);
    shown.panel.Detach();
    EXPECT_EQ(loaded(), 0);
}

TEST(MpiPanel, ShowsPlatesWhereTheDeliveryHasVanished)
{
    ShownDelivery shown(DeliveryBuilder({.photos = 8, .drawings = 0}), Setting::DivideFour);
    std::filesystem::remove_all(shown.temp.Path("PHOTO"));
    shown.Press(Qt::Key_PageDown);
    const auto plates = [&shown] {
        int count = 0;
        for (const QLabel* label : shown.panel.findChildren<QLabel*>())
            count += label->isVisible() && label->text() == QStringLiteral("表示できません");
        return count;
    };
    EXPECT_TRUE(QTest::qWaitFor([&plates] { return plates() == 4; }));
    shown.panel.PasteLabel(LabelNg1);
    shown.Press(Qt::Key_PageUp);
    EXPECT_TRUE(QTest::qWaitFor([&plates] { return plates() == 4; }));
    EXPECT_TRUE(shown.Photo(4).IsLabelPasted(LabelNg1));
}
} // namespace
