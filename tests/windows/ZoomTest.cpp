#include "imagefacts/ToviExifInfo.h"
#include "photos/ToviPhoto.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "platform/files/MibFile.h"
#include "review/SlideMode.h"
#include "support/Texts.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/ShownDelivery.h"
#include "windows/zoom/ToviMultiDlg.h"
#include "windows/zoom/ZoomView.h"

#include <QLabel>
#include <QSlider>
#include <QTabWidget>

#include <filesystem>
#include <fstream>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;
using testing::IsEmpty;

/// A panel with zoom windows over pictures.
struct Zoomed : ShownDelivery
{
    explicit Zoomed(int photos = 9, Setting::DivideType mode = Setting::DivideFour)
        : ShownDelivery(DeliveryBuilder({.photos = photos, .drawings = 0}), mode)
    {}

    void Open(int position)
    {
        data->PhotoSelectSetting(data->GetIndexPhotoArray(position));
        panel.ShowMultiDlg();
    }
    ToviMultiDlg& At(std::size_t index) { return *panel.Zooms().All().at(index); }
    static void Command(ToviMultiDlg& zoom, int command)
    {
        for (WenToolBarCtrl* bar : zoom.findChildren<WenToolBarCtrl*>()) {
            for (QAction* action : bar->actions()) {
                if (!action->isSeparator() && action->data().toInt() == command) action->trigger();
            }
        }
    }
    static bool IsEnabled(ToviMultiDlg& zoom, int command)
    {
        for (WenToolBarCtrl* bar : zoom.findChildren<WenToolBarCtrl*>()) {
            for (QAction* action : bar->actions()) {
                if (!action->isSeparator() && action->data().toInt() == command)
                    return action->isEnabled();
            }
        }
        return false;
    }
    /// The positions on show; -1 for what is in no current array.
    std::vector<int> Shows()
    {
        std::vector<int> positions;
        for (const ToviMultiDlg* zoom : panel.Zooms().All())
            positions.push_back(data->GetCurrentArray().Find(zoom->GetPhotoIndex()));
        return positions;
    }
    static bool WaitFor(const ToviMultiDlg& zoom)
    {
        return QTest::qWaitFor([&] {
            return !zoom.View().IsLoading() &&
                   (zoom.View().HasPicture() || zoom.View().HasFailed());
        });
    }
};

enum CommandId
{
    RotateRight = 1096,
    TakeBack = 1099,
    Information = 1100,
    Arrange = 1101,
    Close = 1102,
    CloseAll = 1103,
    Fix = 1104,
    SavePhoto = 1133
};

TEST(Zoom, OpensFollowsAndIsFixed)
{
    Zoomed shown;
    shown.panel.ShowMultiDlg();
    ASSERT_EQ(shown.Shows().size(), 1);
    shown.Click(2);
    EXPECT_THAT(shown.Shows(), ElementsAre(2));
    Zoomed::Command(shown.At(0), Fix);
    shown.Click(1);
    EXPECT_THAT(shown.Shows(), ElementsAre(2)) << "fixed";
    shown.Press(Qt::Key_Return);
    EXPECT_THAT(shown.Shows(), ElementsAre(2, 1));
    shown.panel.OperateNextPage();
    EXPECT_THAT(shown.Shows(), ElementsAre(2, 4)) << "the selection follows the page";
    shown.At(1).activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&shown.At(1)));
    QTest::keyClick(&shown.At(1), Qt::Key_PageDown);
    EXPECT_THAT(shown.Shows(), ElementsAre(2, 5));
    shown.Open(2);
    EXPECT_THAT(shown.Shows(), ElementsAre(2, 5)) << "a window that has it is raised";
    const CString fixed = shown.At(0).GetPath();
    shown.ShowFirst(0);
    EXPECT_EQ(shown.At(0).GetPath(), fixed);
    EXPECT_EQ(shown.At(1).GetPath(), "") << "nothing is left to follow";
    QTest::keyClick(&shown.At(1), Qt::Key_Escape);
    EXPECT_EQ(shown.panel.Zooms().All().size(), 1);
    shown.panel.Detach();
    EXPECT_THAT(shown.panel.Zooms().All(), IsEmpty());
}

TEST(Zoom, EndsAtSix)
{
    Zoomed shown;
    for (int position = 0; position < 6; ++position) {
        shown.Open(position);
        Zoomed::Command(shown.At(static_cast<std::size_t>(position)), Fix);
    }
    shown.Open(6);
    EXPECT_EQ(shown.panel.Zooms().All().size(), 6);
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre("これ以上の表示はできません。\n不要なウィンドウを閉じてください。"));
    Zoomed::Command(shown.At(4), Arrange);
    EXPECT_EQ(shown.At(4).pos().y(), shown.At(1).pos().y());
    EXPECT_GT(shown.At(4).pos().x(), shown.At(1).pos().x());
    Zoomed::Command(shown.At(4), CloseAll);
    EXPECT_THAT(shown.Shows(), IsEmpty());
}

TEST(Zoom, RemembersTheLastOne)
{
    Zoomed shown;
    shown.panel.ShowMultiDlg();
    // With its frame no wider than the screen.
    EXPECT_EQ(shown.At(0).frameGeometry().width(), 800);
    EXPECT_EQ(shown.At(0).height(), 600);
    shown.At(0).resize(700, 500);
    QApplication::processEvents();
    shown.At(0).SetSplitterPos(333);
    Zoomed::Command(shown.At(0), Information);
    Zoomed::Command(shown.At(0), Close);
    shown.panel.ShowMultiDlg();
    EXPECT_EQ(shown.At(0).size(), QSize(700, 500));
    EXPECT_EQ(shown.At(0).GetSplitterPos(), 333);
    EXPECT_FALSE(shown.At(0).IsInfoVisible());
    shown.At(0).showMaximized();
    QApplication::processEvents();
    Zoomed::Command(shown.At(0), Close);
    ToviMpiPanel later(&shown.host);
    later.Attach(shown.data.get());
    later.ShowMultiDlg();
    EXPECT_TRUE(later.Zooms().All()[0]->isMaximized());
    later.DeleteAllDialog();
    EXPECT_EQ(shown.services.profile.GetProfileInt("MultiDialogSize", "DialogWidth", -1), 800);
    EXPECT_EQ(shown.services.profile.GetProfileInt("MultiDialogSize", "DialogZoom", -1), 101);
    later.Detach();
}

TEST(Zoom, WorksOnACopyOfThePicture)
{
    Zoomed shown;
    shown.Open(1);
    ToviMultiDlg& window = shown.At(0);
    ASSERT_TRUE(Zoomed::WaitFor(window));
    ZoomView& view = window.View();
    const QSize size = view.PictureSize();
    const QImage loaded = view.Window().grab().toImage();
    EXPECT_FALSE(Zoomed::IsEnabled(window, TakeBack));
    Zoomed::Command(window, RotateRight);
    EXPECT_EQ(view.Rotation(), 90);
    EXPECT_EQ(view.PictureSize(), size);
    for (int turn = 0; turn < 3; ++turn) Zoomed::Command(window, RotateRight);
    EXPECT_EQ(view.Rotation(), 0);
    EXPECT_EQ(view.Window().grab().toImage(), loaded);
    EXPECT_TRUE(Zoomed::IsEnabled(window, TakeBack)) << "it was turned, however it ended";
    auto& slider = *window.findChild<QSlider*>();
    slider.setValue(-60);
    slider.setValue(-30);
    const QImage lighter = view.Window().grab().toImage();
    slider.setValue(100);
    slider.setValue(-30);
    EXPECT_EQ(view.Window().grab().toImage(), lighter) << "always from the picture as loaded";
    EXPECT_NE(lighter, loaded);
    shown.Click(0);
    ASSERT_TRUE(ToviExifInfo::IsSvg(window.GetPath()));
    EXPECT_EQ(view.Brightness(), 0);
    EXPECT_FALSE(slider.isEnabled());
    ASSERT_TRUE(Zoomed::WaitFor(window));
    EXPECT_TRUE(view.HasPicture());
    shown.Click(2);
    EXPECT_EQ(view.Brightness(), 600) << "stays over from photograph to photograph";
    ASSERT_TRUE(Zoomed::WaitFor(window));
    EXPECT_TRUE(Zoomed::IsEnabled(window, TakeBack));
    Zoomed::Command(window, TakeBack);
    EXPECT_EQ(slider.value(), 0);
    EXPECT_EQ(view.Brightness(), 0);
    EXPECT_FALSE(Zoomed::IsEnabled(window, TakeBack));
}

TEST(Zoom, ShowsThePlaceAgainOnTheNextPhotograph)
{
    Zoomed shown;
    shown.panel.ShowMultiDlg();
    ToviMultiDlg& window = shown.At(0);
    const LumImgWnd& picture = window.View().Window();
    ASSERT_TRUE(Zoomed::WaitFor(window));
    window.View().Window().ShowFullSize();
    shown.Click(1);
    ASSERT_TRUE(Zoomed::WaitFor(window));
    EXPECT_TRUE(picture.View().IsFit());
    window.SetKeepsView(true);
    window.View().Window().ShowFullSize();
    shown.Click(2);
    ASSERT_TRUE(Zoomed::WaitFor(window));
    EXPECT_EQ(picture.View().Zoom(), 1);
}

TEST(Zoom, TellsWhatCannotBeShownAndWhy)
{
    Zoomed shown(7, Setting::DivideThumbnails);
    const auto fileOf = [&](int position) -> CString {
        return shown.Photo(position).GetImagePath();
    };
    std::filesystem::remove(fileOf(1));
    std::ofstream(fileOf(2)) << "BM and no bitmap behind it, however long it is read";
    std::ofstream(fileOf(3)) << "no picture";
    std::filesystem::remove(fileOf(4));
    std::filesystem::create_symlink("/etc/hostname", fileOf(4));
    const CString cut = fileOf(5);
    std::filesystem::resize_file(cut, std::filesystem::file_size(cut) * 2 / 3);
    const struct
    {
        int position;
        const char* reason;
    } cases[] = {{1, "ファイルがありません"},
                 {2, "ファイルが壊れています"},
                 {3, "写真のファイルではありません"},
                 {4, "納品フォルダーの外です"}};
    for (const auto& test : cases) {
        shown.Open(test.position);
        ToviMultiDlg& window = shown.At(0);
        ASSERT_TRUE(Zoomed::WaitFor(window));
        EXPECT_TRUE(window.View().HasFailed());
        EXPECT_FALSE(window.windowTitle().isEmpty());
        const auto* plate = qobject_cast<QLabel*>(window.View().currentWidget());
        ASSERT_NE(plate, nullptr) << test.reason;
        EXPECT_TRUE(plate->text().endsWith(QtText(test.reason))) << FromQtText(plate->text());
        EXPECT_TRUE(plate->text().contains(QtText(MibGetFileName(fileOf(test.position)))));
    }
    for (const int position : {5, 6}) {
        shown.Open(position);
        ASSERT_TRUE(Zoomed::WaitFor(shown.At(0)));
        EXPECT_TRUE(shown.At(0).View().HasPicture()) << position;
    }
}

TEST(Zoom, DropsWhatIsNoLongerWanted)
{
    Zoomed shown(9, Setting::DivideThumbnails);
    shown.panel.ShowMultiDlg();
    for (int position = 1; position < 9; ++position) shown.Open(position);
    ASSERT_TRUE(Zoomed::WaitFor(shown.At(0)));
    int width = 0;
    int height = 0;
    ASSERT_TRUE(shown.Photo(8).GetImageSize(width, height));
    const QSize size = shown.At(0).View().PictureSize();
    EXPECT_EQ(std::max(size.width(), size.height()), std::max(width, height));
    // A window that closes amid its loading, and the delivery with it.
    shown.Open(2);
    shown.panel.Detach();
    QTest::qWait(50);
    QApplication::processEvents();
    EXPECT_THAT(shown.panel.Zooms().All(), IsEmpty());
}

TEST(Zoom, PastesLabelsAndShowsThoseOfOthers)
{
    Zoomed shown;
    shown.panel.ShowMultiDlg();
    Zoomed::Command(shown.At(0), Fix);
    shown.Click(3);
    shown.At(0).activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&shown.At(0)));
    QTest::keyClick(&shown.At(0).View().Window(), Qt::Key_1);
    EXPECT_TRUE(shown.Photo(0).IsLabelPasted(LabelNg1)) << "of the photograph in the window";
    EXPECT_FALSE(shown.Photo(3).IsLabelPasted(LabelNg1));
    auto& plate = *shown.At(0).findChild<ToviNamePlate*>();
    EXPECT_TRUE(plate.Button(LabelNg1)->IsPressed());
    shown.Click(0);
    shown.panel.ToggleLabel(LabelOk);
    EXPECT_TRUE(plate.Button(LabelOk)->IsPressed());
    EXPECT_FALSE(plate.Button(LabelNg1)->IsPressed());
    QTest::keyClick(&shown.At(0).View().Window(), Qt::Key_Delete);
    EXPECT_FALSE(plate.Button(LabelOk)->IsPressed());
}

TEST(Zoom, SavesTheWorkedCopyButNotInSlideMode)
{
    Zoomed shown;
    const TempFolder out;
    shown.panel.ShowMultiDlg();
    ToviMultiDlg& window = shown.At(0);
    ASSERT_TRUE(Zoomed::WaitFor(window));
    Zoomed::Command(window, RotateRight);
    auto& user = shown.services.user;
    SetSlideMode(true);
    Zoomed::Command(window, SavePhoto);
    SetSlideMode(false);
    EXPECT_EQ(user.Messages().GetSize(), 1);
    user.options = {0};
    user.saveFiles = {out.Path("saved.JPG")};
    Zoomed::Command(window, SavePhoto);
    int width = 0;
    int height = 0;
    ASSERT_TRUE(LumImage::GetCommentImageSize(out.Path("saved.JPG").c_str(), width, height));
    EXPECT_EQ(QSize(width, height), window.View().PictureSize().transposed());
}
} // namespace
