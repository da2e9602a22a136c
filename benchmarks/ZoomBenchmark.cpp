// A photograph of twelve million pixels in a zoom window: from the request until something of it
// is painted, and until the whole of it is, beside the bare decoding of the same file. And what
// opening and closing windows leaves behind.

#include "BareJpeg.h"
#include "platform/controls/LumImgWnd.h"
#include "support/OpenedSample.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/zoom/ToviMultiDlg.h"
#include "windows/zoom/ZoomView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QThreadPool>

#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace
{
constexpr int photoCount = 12;
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
            std::filesystem::copy_file(first, temp.Path(Format("PHOTO/PIC/P%07d.JPG", photo + 1)));
        }
        return temp.Path("PHOTO");
    }();
    return folder;
}

/// A list, which loads no full pictures itself, and its zoom windows.
struct ZoomBench
{
    ZoomBench()
    {
        ToviEnouDataFactory factory;
        document.reset(
            factory.Create(&host, LargeFolder().c_str(), PhotoXMLMlit, nullptr, nullptr));
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
        document->Load();
        ToviPhotoCtrlVisualSetting setting = document->GetVisualSetting();
        setting.SetDivType(ToviPhotoCtrlVisualSetting::DivideList);
        document->SetVisualSetting(setting, false);
        panel.Attach(document.get());
        panel.OnUpdate(nullptr, ToviData::HintInitialize, nullptr);
    }
    ~ZoomBench() { panel.Detach(); }

    void Request()
    {
        next = (next + 1) % photoCount;
        document->PhotoSelectSetting(next);
        panel.ShowMultiDlg();
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
    int next = 0;
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

/// \p sharp: until all is there. \p isOpen: in a window that shows another photograph.
void ZoomLarge(benchmark::State& state, bool sharp, bool isOpen)
{
    ZoomBench bench;
    if (isOpen) {
        bench.Request();
        bench.WaitForSharp();
    }
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        bench.Request();
        if (sharp) {
            bench.WaitForSharp();
        } else {
            bench.WaitForFirst();
        }
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
        bench.WaitForSharp();
        if (isOpen) continue;
        bench.panel.DeleteAllDialog();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
BENCHMARK_CAPTURE(ZoomLarge, open_first, false, false)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, open_sharp, true, false)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, next_first, false, true)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(ZoomLarge, next_sharp, true, true)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

double ResidentMegabytes()
{
    malloc_trim(0);
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0;
    statm >> total >> resident;
    return static_cast<double>(resident) * 4096 / (1 << 20);
}

/// Opens and closes windows; tells by how much the program has grown since the first twenty.
void OpenAndCloseZooms(benchmark::State& state)
{
    ZoomBench bench;
    double before = 0;
    for (auto _ : state) {
        for (int window = 0; window < 220; ++window) {
            bench.Request();
            bench.WaitForSharp();
            bench.panel.DeleteAllDialog();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            if (window == 20) before = ResidentMegabytes();
        }
    }
    state.counters["MB"] = ResidentMegabytes() - before;
}
BENCHMARK(OpenAndCloseZooms)->Iterations(1)->Unit(benchmark::kMillisecond);
} // namespace
