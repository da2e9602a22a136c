// A photograph of twelve million pixels in a zoom window, of 2,000: from the request until one that
// is sharp in the window is painted, and until the whole of it is, beside the bare decoding of the
// same file. Requests while a share doesn't answer. And what opening and closing windows leaves
// behind.

#include "BareJpeg.h"
#include "photos/DeliveryFiles.h"
#include "platform/controls/LumImgWnd.h"
#include "support/OpenedSample.h"
#include "support/StallingShare.h"
#include "windows/loader/FileLoader.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/zoom/ToviMultiDlg.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QTest>

#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace
{
constexpr int photoCount = 2000;
/// As far away as nothing is fetched ahead.
constexpr int farAway = 7;
constexpr QSize photoSize(4000, 3000);

/// The folder of the PHOTO.XML of a delivery whose photographs have twelve million pixels and the
/// grain of a camera's.
const CString& LargeFolder()
{
    static const TempFolder temp;
    static const CString folder = [] {
        DeliveryBuilder delivery({.photos = photoCount, .drawings = 0, .images = false});
        for (int photo = 0; photo < photoCount; ++photo) {
            delivery.Set(photo, "写真ファイル名", Format("P%07d.JPG", photo + 1));
        }
        delivery.Write(temp.Path());
        QImage image = QImage(QString::fromStdString(PhotoPath()))
                           .scaled(photoSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                           .convertToFormat(QImage::Format_RGB888);
        std::minstd_rand random;
        for (int row = 0; row < image.height(); ++row) {
            uchar* const line = image.scanLine(row);
            for (int at = 0; at < image.width() * 3; ++at) {
                line[at] = static_cast<uchar>(std::clamp(
                    static_cast<int>(line[at]) + static_cast<int>(random() % 13) - 6, 0, 255));
            }
        }
        const CString first = temp.Path("PHOTO/PIC/P0000001.JPG");
        image.save(QString::fromStdString(first), "jpeg", 92);
        for (int photo = 1; photo < photoCount; ++photo) {
            std::filesystem::create_hard_link(first,
                                              temp.Path(Format("PHOTO/PIC/P%07d.JPG", photo + 1)));
        }
        return temp.Path("PHOTO");
    }();
    return folder;
}

/// A list, which loads no pictures itself, and its zoom windows.
struct ZoomBench
{
    explicit ZoomBench(const CString& folder = LargeFolder())
    {
        ToviEnouDataFactory factory;
        document.reset(factory.Create(&host, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
        document->Load();
        ToviPhotoCtrlVisualSetting setting = document->GetVisualSetting();
        setting.SetDivType(ToviPhotoCtrlVisualSetting::DivideList);
        document->SetVisualSetting(setting, false);
        panel.Attach(document.get());
        panel.OnUpdate(nullptr, ToviData::HintInitialize, nullptr);
    }
    ~ZoomBench() { panel.Detach(); }

    /// Shows the photograph \p step places on.
    void Request(int step)
    {
        position = (position + step) % photoCount;
        document->PhotoSelectSetting(document->GetIndexPhotoArray(position));
        panel.ShowMultiDlg();
    }
    void CloseAll()
    {
        panel.DeleteAllDialog();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static void WaitUntilIdle()
    {
        while (!FileLoader::Ours().IsIdle()) QTest::qWait(2);
    }
    ZoomView& View() { return panel.Zooms().All()[0]->View(); }
    void WaitForFirst()
    {
        while (!View().HasPicture()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        View().Window().repaint();
    }
    void WaitForSharp()
    {
        WaitForFirst();
        while (View().IsLoading()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        View().Window().repaint();
    }

    TestHost services;
    NotingDocument host;
    std::unique_ptr<ToviData> document;
    ToviMpiPanel panel;
    int position = 0;
};

CString LargePhoto()
{
    return LargeFolder() + "/PIC/P0000001.JPG";
}

void BareDecodeLarge(benchmark::State& state)
{
    const CString path = LargePhoto();
    for (auto _ : state) DecodeBare(path, static_cast<unsigned>(state.range(0)));
}
BENCHMARK(BareDecodeLarge)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond)->UseRealTime();

void QtDecodeLarge(benchmark::State& state)
{
    const CString path = LargePhoto();
    for (auto _ : state) benchmark::DoNotOptimize(QImage(QString::fromStdString(path)));
}
BENCHMARK(QtDecodeLarge)->Unit(benchmark::kMillisecond)->UseRealTime();

struct ZoomCase
{
    /// Until all is there.
    bool sharp = false;
    /// In a window that shows another photograph.
    bool isOpen = false;
    /// The one that was fetched ahead.
    bool isNext = false;
};

void ZoomLarge(benchmark::State& state, const ZoomCase& how)
{
    ZoomBench bench;
    for (auto _ : state) {
        if (how.isOpen) {
            bench.Request(farAway);
            bench.WaitForSharp();
        }
        ZoomBench::WaitUntilIdle();
        QElapsedTimer timer;
        timer.start();
        bench.Request(how.isNext ? 1 : farAway);
        if (how.sharp) {
            bench.WaitForSharp();
        } else {
            bench.WaitForFirst();
        }
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
        bench.WaitForSharp();
        if (!how.isOpen) bench.CloseAll();
    }
    state.counters["MBinHand"] = static_cast<double>(FileLoader::Ours().BytesInHand()) / 1e6;
}
BENCHMARK_CAPTURE(ZoomLarge, open_first, ZoomCase{})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, open_sharp, ZoomCase{.sharp = true})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, other_first, ZoomCase{.isOpen = true})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, other_sharp, ZoomCase{.sharp = true, .isOpen = true})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, next_first, ZoomCase{.isOpen = true, .isNext = true})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, next_sharp, ZoomCase{.sharp = true, .isOpen = true, .isNext = true})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

/// The longest time that a request takes in six windows while the share of the photographs doesn't
/// answer.
void ZoomsWhileAShareStalls(benchmark::State& state)
{
    const TempFolder temp;
    StallingShare share(LargeFolder(), temp.MakeFolder("share"));
    if (!share.IsThere()) {
        state.SkipWithError("needs /dev/fuse and the right to mount");
        return;
    }
    ZoomBench bench(temp.Path("share"));
    bench.Request(1);
    bench.WaitForSharp();
    share.Stall();
    double longest = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        bench.Request(1);
        QCoreApplication::processEvents();
        longest = std::max(longest, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    state.counters["msLongest"] = longest;
}
BENCHMARK(ZoomsWhileAShareStalls)->Unit(benchmark::kMillisecond)->Iterations(200)->UseRealTime();

double ResidentMegabytes()
{
    malloc_trim(0);
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0;
    statm >> total >> resident;
    return static_cast<double>(resident) * 4096 / (1 << 20);
}

/// Opens and closes windows; tells by how much the program has grown since the first twenty, once
/// nothing is kept of the files, and how much was kept at most.
void OpenAndCloseZooms(benchmark::State& state)
{
    ZoomBench bench;
    const auto emptied = [&bench] {
        ZoomBench::WaitUntilIdle();
        FileLoader::Ours().Forget(bench.document->GetFiles().get());
        return ResidentMegabytes();
    };
    double before = 0;
    std::size_t most = 0;
    for (auto _ : state) {
        for (int window = 0; window < 220; ++window) {
            bench.Request(1);
            bench.WaitForSharp();
            most = std::max(most, FileLoader::Ours().BytesInHand());
            bench.CloseAll();
            if (window == 20) before = emptied();
        }
    }
    state.counters["MBgrown"] = emptied() - before;
    state.counters["MBinHandAtMost"] = static_cast<double>(most) / 1e6;
}
BENCHMARK(OpenAndCloseZooms)->Iterations(1)->Unit(benchmark::kMillisecond);
} // namespace
