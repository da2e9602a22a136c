#include "windows/loader/FileLoader.h"
#include "extraction/ToviSortCondition.h"
#include "platform/controls/LumImgWnd.h"
#include "support/StallingShare.h"
#include "windows/detail/ToviDetailPanel.h"
#include "windows/list/PhotoListContent.h"
#include "windows/loader/FileSurvey.h"
#include "windows/page/PagesAhead.h"
#include "windows/property/ToviTabBaseWnd.h"
#include "windows/ShownDelivery.h"
#include "windows/zoom/ToviMultiDlg.h"
#include "work/ReadingLimit.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <future>
#include <random>
#include <thread>

using namespace std::chrono_literals;

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;

TEST(PagesAhead, AreTheNeighboursOfThePageAsFarAsThereAreAny)
{
    using enum Urgency;
    EXPECT_THAT(PhotosAhead(4, 2, 9),
                ElementsAre(AheadPhoto{6, Next}, AheadPhoto{7, Next}, AheadPhoto{2, Previous},
                            AheadPhoto{3, Previous}, AheadPhoto{8, Idle}));
    EXPECT_THAT(PhotosAhead(0, 2, 3), ElementsAre(AheadPhoto{2, Next}));
    EXPECT_THAT(PhotosAhead(0, 6, 0), testing::IsEmpty());
}

/// A loader whose files are read when a test says so.
struct Gated
{
    LoadWish Wish(const CString& path, bool waits)
    {
        return {{nullptr, path}, Urgency::Visible, [open = opened, waits](const CString&) {
                    if (waits) open.wait();
                    const auto loaded = std::make_shared<Loaded>();
                    loaded->ok = true;
                    return loaded;
                }};
    }
    std::vector<CString> Arrive(std::size_t count)
    {
        std::vector<CString> arrived;
        const auto note =
            QObject::connect(&*loader, &FileLoader::Arrived, &*loader,
                             [&arrived](const LoadKey& key) { arrived.push_back(key.path); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return arrived.size() >= count; }));
        QTest::qWait(20);
        QObject::disconnect(note);
        return arrived;
    }

    std::promise<void> gate;
    std::shared_future<void> opened = gate.get_future().share();
    std::optional<FileLoader> loader{std::in_place, 2, 1000};
};

TEST(FileLoader, TellsOfWhatIsStillWantedAlone)
{
    Gated gated;
    const int other = 0;
    gated.loader->Want(&gated, {gated.Wish("slow", true), gated.Wish("quick", false)});
    EXPECT_THAT(gated.Arrive(1), ElementsAre("quick"));
    gated.loader->Want(&other, {gated.Wish("slow too", true)});
    gated.loader->Leave(&gated);
    gated.gate.set_value();
    EXPECT_THAT(gated.Arrive(1), ElementsAre("slow too"));
    EXPECT_TRUE(gated.loader->IsIdle());
    EXPECT_TRUE(gated.loader->Stop(1s));
}

TEST(FileLoader, EndsWhileAReadHangs)
{
    Gated gated;
    gated.loader->Want(&gated, {gated.Wish("hangs", true)});
    EXPECT_FALSE(gated.loader->Stop(10ms));
    gated.loader.reset();
    gated.gate.set_value();
}

/// Writes a delivery to \p folder whose photographs are one-coloured JPEG files, each of a hue of
/// its own.
void WriteDelivery(const CString& folder, int photos)
{
    DeliveryBuilder delivery({.photos = photos, .drawings = 1, .images = false});
    const auto name = [](int photo) { return Format("P%07d.JPG", photo + 1); };
    for (int photo = 0; photo < photos; ++photo) delivery.Set(photo, "写真ファイル名", name(photo));
    delivery.Write(folder);
    for (int photo = 0; photo < photos; ++photo) {
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(360 * photo / photos, 255, 255));
        image.save(QtText(folder + "/PHOTO/PIC/" + name(photo)));
    }
}

/// A delivery on a share that stops to answer.
struct SharedDelivery
{
    SharedDelivery() { WriteDelivery(temp.MakeFolder("source"), 24); }

    TempFolder temp;
    StallingShare share{temp.Path("source"), temp.MakeFolder("share")};
};

/// Lets \p share answer again when a window that waits for it would wait for ever.
class Rescue
{
public:
    explicit Rescue(StallingShare& share)
        : thread([this, &share] {
              isNeeded = done.get_future().wait_for(20s) == std::future_status::timeout;
              if (isNeeded) share.Resume();
          })
    {}
    ~Rescue()
    {
        done.set_value();
        thread.join();
        EXPECT_FALSE(isNeeded);
    }

private:
    std::promise<void> done;
    std::atomic<bool> isNeeded = false;
    std::thread thread;
};

/// The photographs on the page whose full pictures are shown.
int CountLoaded(ShownDelivery& shown)
{
    return static_cast<int>(std::ranges::count_if(
        shown.Positions(), [&](int position) { return shown.Photo(position).IsImageLoaded(); }));
}

TEST(FileLoader, LeavesTheWindowAliveWhileAShareDoesNotAnswer)
{
    SharedDelivery on;
    if (!on.share.IsThere()) GTEST_SKIP() << "needs /dev/fuse and the right to mount";
    ShownDelivery shown(on.temp.Path("share/PHOTO"), Setting::DivideSix);
    ASSERT_TRUE(QTest::qWaitFor([&] { return CountLoaded(shown) == 6; }));
    on.share.Stall();
    const Rescue rescue(on.share);
    for (int round = 0; round < 3; ++round) {
        for (const int key : {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_PageUp}) {
            shown.Press(key);
            QTest::qWait(40);
        }
    }
    shown.Press(Qt::Key_PageDown);
    shown.panel.PasteLabel(LabelNg1);
    EXPECT_TRUE(shown.Photo(6).IsLabelPasted(LabelNg1));
    EXPECT_EQ(shown.panel.GetCurrentPage(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return on.share.IsWaitedFor(); }));
    for (const auto mode : {Setting::DivideThumbnails, Setting::DivideList, Setting::DivideSix}) {
        shown.SetMode(mode);
        shown.window.grab();
        QTest::qWait(20);
    }

    // It is given up, and another delivery is looked at.
    const TempFolder temp;
    WriteDelivery(temp.Path(), 6);
    shown.Open(temp.Path("PHOTO"), Setting::DivideSix);
    EXPECT_TRUE(QTest::qWaitFor([&] { return CountLoaded(shown) == 6; }));
    EXPECT_TRUE(on.share.IsWaitedFor());
}

TEST(FileLoader, LeavesZoomAndDetailAliveWhileAShareDoesNotAnswer)
{
    SharedDelivery on;
    if (!on.share.IsThere()) GTEST_SKIP() << "needs /dev/fuse and the right to mount";
    ShownDelivery shown(on.temp.Path("share/PHOTO"), Setting::DivideList);
    QWidget frame;
    ToviDetailPanel detail;
    detail.Create(&frame, 2);
    detail.Attach(shown.data.get());
    detail.findChild<ToviTabBaseWnd*>()->ShowPage(1);
    frame.show();
    on.share.Stall();
    const Rescue rescue(on.share);
    for (int photo = 0; photo < 6; ++photo) {
        shown.data->PhotoSelectSetting(photo);
        detail.OnUpdate(nullptr, ToviData::HintPhotoSelected, nullptr);
        shown.panel.ShowMultiDlg();
        ToviMultiDlg& zoom = *shown.panel.Zooms().All().back();
        zoom.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&zoom));
        QTest::keyClick(&zoom, Qt::Key_1);
        EXPECT_TRUE(shown.data->GetPhotoActualPhotoArray(photo)->IsLabelPasted(LabelNg1));
        EXPECT_FALSE(zoom.windowTitle().isEmpty());
        for (QAction* action : zoom.findChildren<QAction*>()) {
            if (action->text() == QStringLiteral("固定")) action->trigger();
        }
        QTest::qWait(30);
    }
    EXPECT_EQ(shown.panel.Zooms().All().size(), 6);
    EXPECT_TRUE(QTest::qWaitFor([&] { return on.share.IsWaitedFor(); }));
    detail.Detach();
}

/// Whether the pixel has the hue of the photograph \p photo of \p photos.
bool IsOf(const QColor& colour, int photo, int photos)
{
    const int apart = std::abs(colour.hue() - 360 * photo / photos);
    return std::min(apart, 360 - apart) <= 180 / photos;
}

TEST(FileLoader, NeverShowsTheTileOfAnotherPhotograph)
{
    constexpr int photos = 40;
    TempFolder temp;
    WriteDelivery(temp.Path(), photos);
    ShownDelivery shown(temp.Path("PHOTO"), Setting::DivideThumbnails);
    PhotoListContent list(shown.data->GetVisualSetting());
    list.SetDocument(shown.data.get());
    list.ShowRows({0, photos}, true);
    std::vector<int> changed;
    list.OnRowChanged = [&changed](int row) { changed.push_back(row); };
    // Under way it becomes another list, with other photographs in the same rows.
    ToviSortCondition condition = shown.data->GetSortCondition();
    condition.ExecSort(true);
    condition.SetKeyItem("写真ファイル名");
    condition.Ascending(false);
    shown.data->SetSortCondition(condition);
    shown.data->Sort();
    ASSERT_TRUE(QTest::qWaitFor([] { return FileLoader::Ours().IsIdle(); }));
    for (int row = 0; row < photos; ++row) {
        const ListTile tile = list.Tile(row, 1);
        ASSERT_TRUE(tile.isWhole);
        const int photo = shown.data->GetPhotoIndex(row);
        EXPECT_TRUE(IsOf(tile.image.pixelColor(75, 83), photo, photos)) << row;
        EXPECT_THAT(changed, testing::Contains(row));
    }
}

TEST(FileLoader, NeverTakesAReducedPictureForThePhotographsOwn)
{
    constexpr QSize size(1600, 1300);
    TempFolder temp;
    WriteDelivery(temp.Path(), 2);
    QImage stripes(size, QImage::Format_RGB32);
    QImage stripe(2, 1, QImage::Format_RGB32);
    stripe.setPixel(0, 0, qRgb(255, 255, 255));
    stripe.setPixel(1, 0, qRgb(0, 0, 0));
    QPainter(&stripes).fillRect(stripes.rect(), QBrush(stripe));
    stripes.save(QtText(temp.Path("PHOTO/PIC/P0000001.JPG")), "jpeg", 100);
    ShownDelivery shown(temp.Path("PHOTO"), Setting::DivideThumbnails);
    // So little that the picture has to be reduced.
    ASSERT_TRUE(PictureMemory::Save(PictureMemory::smallest));
    shown.SetMode(Setting::DivideTwo);
    shown.panel.ShowMultiDlg();
    ZoomView& view = shown.panel.Zooms().All()[0]->View();
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return view.HasPicture() && !view.IsLoading() && shown.Photo(1).IsImageLoaded() &&
               FileLoader::Ours().IsIdle();
    }));
    EXPECT_FALSE(shown.Photo(0).IsImageLoaded());
    EXPECT_TRUE(view.IsReduced());
    EXPECT_EQ(view.PictureSize(), size);
    view.Window().ShowFullSize();
    const auto isSharp = [&] {
        const QImage seen = view.Window().grab().toImage();
        const QPoint middle = seen.rect().center();
        const int step = qGray(seen.pixel(middle)) - qGray(seen.pixel(middle + QPoint(1, 0)));
        return std::abs(step) > 200;
    };
    EXPECT_TRUE(QTest::qWaitFor(isSharp)) << "its parts are read as they are looked at";

    // Less than what is sharp in a window takes.
    FileLoader::Ours().SetBudget(std::size_t{2} << 20);
    shown.panel.DeleteAllDialog();
    shown.panel.ShowMultiDlg();
    const ZoomView& again = shown.panel.Zooms().All()[0]->View();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !again.IsLoading(); })) << "it stays at what there is";
}

TEST(FileLoader, ShowsAtOnceWhatWasFetchedAheadAndLooksAtItsFileAgain)
{
    constexpr int photos = 8;
    TempFolder temp;
    WriteDelivery(temp.Path(), photos);
    ShownDelivery shown(temp.Path("PHOTO"), Setting::DivideTwo);
    const auto isFetched = [&] { return CountLoaded(shown) == 2 && FileLoader::Ours().IsIdle(); };
    QTest::qWait(200);
    ASSERT_TRUE(QTest::qWaitFor(isFetched));
    shown.panel.OperateNextPage();
    EXPECT_EQ(CountLoaded(shown), 2);
    shown.panel.OperatePrevPage();
    std::filesystem::remove(shown.Photo(2).GetImagePath());
    shown.panel.OperateNextPage();
    const auto plates = [&] {
        return std::ranges::count_if(shown.panel.findChildren<QLabel*>(), [](const QLabel* label) {
            return label->isVisible() && label->text().startsWith(QStringLiteral("表示できません"));
        });
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return plates() == 1; }));
}

TEST(FileSurvey, FindsWhatIsMissingOrDamagedWithoutDecodingIt)
{
    TempFolder temp;
    WriteDelivery(temp.Path(), 40);
    const auto file = [&](int photo) {
        return temp.Path(Format("PHOTO/PIC/P%07d.JPG", photo + 1));
    };
    QImage grain(500, 500, QImage::Format_RGB32);
    std::minstd_rand random;
    for (int pixel = 0; pixel < 500 * 500; ++pixel) {
        grain.setPixel(pixel % 500, pixel / 500, static_cast<uint>(random()));
    }
    // Far more than its beginning and its end.
    for (const int photo : {3, 33, 35}) grain.save(QtText(file(photo)), "jpeg", 95);
    std::filesystem::resize_file(file(3), std::filesystem::file_size(file(3)) / 2);
    std::ofstream(file(33), std::ios::app) << CString(10'000, '-');
    std::filesystem::remove(file(34));
    std::ofstream(file(36)) << "no picture";
    std::filesystem::resize_file(file(37), 0);
    std::filesystem::remove(file(39));
    std::filesystem::create_symlink("/etc/hostname", file(39));
    const ShownDelivery shown(temp.Path("PHOTO"), Setting::DivideList);
    FileSurvey survey;
    survey.Begin(*shown.data);
    ASSERT_TRUE(QTest::qWaitFor([&] { return survey.Seen() == 40; }));
    using enum PictureFault;
    EXPECT_THAT(survey.Faulty(),
                ElementsAre(FaultyFile{3, Cut}, FaultyFile{34, Missing}, FaultyFile{36, NoPicture},
                            FaultyFile{37, Damaged}, FaultyFile{39, Outside}));
    EXPECT_EQ(survey.Counts().Text(), "写真なし 1枚・壊れた写真 3枚・納品フォルダーの外の写真 1枚");
    survey.End();
    EXPECT_EQ(survey.Counts().Text(), "");
}
} // namespace
