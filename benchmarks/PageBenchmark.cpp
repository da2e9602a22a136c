// Turning a page of six photographs of two million pixels, cold and fetched ahead: until their
// thumbnails are on screen, and until the full pictures are, beside six bare decodes spread over
// the cores. A list that is scrolled. Keys while a share doesn't answer. And a label by key until
// its cell is painted again, beside a bare painting of the cell.

#include "BareJpeg.h"
#include "hosts/viewer/MainFrame.h"
#include "Samples.h"
#include "support/OpenedSample.h"
#include "support/StallingShare.h"
#include "windows/cell/ToviSpiCtrl.h"
#include "windows/loader/FileLoader.h"
#include "windows/page/ToviMpiPanel.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

namespace
{
constexpr QSize windowSize(1280, 800);
constexpr int onPage = 6;
constexpr int photoCount = 240;

/// The folder of the PHOTO.XML of a delivery whose photographs all have two million pixels.
CString PagesFolder()
{
    static const TempFolder temp;
    static const bool made = [] {
        DeliveryBuilder delivery({.photos = photoCount, .drawings = 0, .images = false});
        for (int photo = 0; photo < photoCount; ++photo)
            delivery.Set(photo, "写真ファイル名", Format("P%07d.JPG", photo + 1));
        delivery.Write(temp.Path());
        for (int photo = 0; photo < photoCount; ++photo) {
            std::filesystem::copy_file(PhotoPath(),
                                       temp.Path(Format("PHOTO/PIC/P%07d.JPG", photo + 1)));
        }
        return true;
    }();
    return made ? temp.Path("PHOTO") : CString();
}

/// Pages of six over a delivery that was just opened.
struct PageBench
{
    explicit PageBench(CString photos = PagesFolder()) : folder(std::move(photos))
    {
        window.resize(windowSize);
        panel.Create(&window, 1);
        panel.resize(windowSize);
        Open();
        window.show();
        Paint();
    }
    ~PageBench() { panel.Detach(); }

    void Open()
    {
        panel.Detach();
        ToviEnouDataFactory factory;
        document.reset(factory.Create(&host, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
        document->Load();
        ToviPhotoCtrlVisualSetting setting = document->GetVisualSetting();
        setting.SetDivType(ToviPhotoCtrlVisualSetting::DivideSix);
        document->SetVisualSetting(setting, false);
        panel.Attach(document.get());
        panel.OnUpdate(nullptr, ToviData::HintInitialize, nullptr);
    }

    /// Takes the delivery up anew behind its last page: no page comes twice.
    void KeepPages()
    {
        if (panel.GetCurrentPage() < panel.GetTotalPage()) return;
        Open();
        Paint();
    }

    /// Paints all that is due, and deletes, as the event loop does.
    static void Paint()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Nothing is in hand but the page on show.
    void ForgetOthers() const
    {
        WaitUntilIdle();
        FileLoader::Ours().Forget(document->GetFiles().get());
    }
    static void WaitUntilIdle()
    {
        while (!FileLoader::Ours().IsIdle()) QTest::qWait(2);
        Paint();
    }
    /// As WaitUntilIdle, once the pictures of the neighbours are wanted, too.
    static void WaitUntilFetchedAhead()
    {
        QTest::qWait(200);
        WaitUntilIdle();
    }

    template <class Shown>
    bool IsPage(const Shown& isShown) const
    {
        const int first = (panel.GetCurrentPage() - 1) * onPage;
        for (int position = first; position < first + onPage; ++position) {
            if (!isShown(*document->GetPhoto(position))) return false;
        }
        return true;
    }
    template <class Shown>
    void WaitUntil(const Shown& isShown) const
    {
        while (!IsPage(isShown)) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        Paint();
    }
    void WaitUntilThumbnails() const
    {
        WaitUntil([](const ToviPhoto& photo) { return photo.GetImage().IsValid(); });
    }
    void WaitUntilPageIsFull() const
    {
        WaitUntil([](const ToviPhoto& photo) { return photo.IsImageLoaded(); });
    }

    CString folder;
    TestHost services;
    NotingDocument host;
    std::unique_ptr<ToviData> document;
    QWidget window;
    ToviMpiPanel panel;
};

void DecodePage(benchmark::State& state, int reduction)
{
    const CString path = PhotoPath();
    const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
    for (auto _ : state) {
        std::atomic<int> left = onPage;
        std::vector<std::jthread> threads;
        for (unsigned core = 0; core < cores; ++core) {
            threads.emplace_back([&] {
                while (left-- > 0) DecodeBare(path, reduction);
            });
        }
    }
}

/// Turns a page each time, when \p prepare has returned; it is on screen once \p finish has.
template <class Prepare, class Finish>
void TurnPages(benchmark::State& state, const Prepare& prepare, const Finish& finish)
{
    PageBench bench;
    for (auto _ : state) {
        state.PauseTiming();
        bench.KeepPages();
        prepare(bench);
        state.ResumeTiming();
        bench.panel.OperateNextPage();
        finish(bench);
    }
}

void BareScaledDecodesOfAPage(benchmark::State& state)
{
    DecodePage(state, 4);
}
BENCHMARK(BareScaledDecodesOfAPage)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

void TurnColdPageToThumbnails(benchmark::State& state)
{
    TurnPages(
        state, [](PageBench& bench) { bench.ForgetOthers(); },
        [](PageBench& bench) { bench.WaitUntilThumbnails(); });
}
BENCHMARK(TurnColdPageToThumbnails)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

void BareFullDecodesOfAPage(benchmark::State& state)
{
    DecodePage(state, 1);
}
BENCHMARK(BareFullDecodesOfAPage)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

/// The time counts the 100 ms that a key held down gets to turn on, in which the thumbnails come.
void TurnColdPageToFullPictures(benchmark::State& state)
{
    TurnPages(
        state, [](PageBench& bench) { bench.ForgetOthers(); },
        [](PageBench& bench) { bench.WaitUntilPageIsFull(); });
}
BENCHMARK(TurnColdPageToFullPictures)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

/// With the thumbnails alone in hand, as while a key is held down.
void TurnPageToThumbnailsInHand(benchmark::State& state)
{
    TurnPages(
        state,
        [](PageBench& bench) {
            bench.ForgetOthers();
            bench.panel.OperateNextPage();
            bench.WaitUntilIdle();
        },
        [](PageBench& bench) { bench.WaitUntilThumbnails(); });
}
BENCHMARK(TurnPageToThumbnailsInHand)->Unit(benchmark::kMillisecond)->UseRealTime();

void TurnPageToFullPicturesInHand(benchmark::State& state)
{
    TurnPages(
        state, [](PageBench& bench) { bench.WaitUntilFetchedAhead(); },
        [](PageBench& bench) { bench.WaitUntilPageIsFull(); });
}
BENCHMARK(TurnPageToFullPicturesInHand)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The longest time that a key takes while the share of the photographs doesn't answer.
void KeysWhileAShareStalls(benchmark::State& state)
{
    const TempFolder temp;
    StallingShare share(PagesFolder(), temp.MakeFolder("share"));
    if (!share.IsThere()) {
        state.SkipWithError("needs /dev/fuse and the right to mount");
        return;
    }
    PageBench bench(temp.Path("share"));
    bench.WaitUntilFetchedAhead();
    share.Stall();
    double longest = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        if (bench.panel.GetCurrentPage() % 7 != 0) {
            bench.panel.OperateNextPage();
        } else {
            bench.panel.OperateTopPage();
        }
        QCoreApplication::processEvents();
        longest = std::max(longest, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    state.counters["msLongest"] = longest;
}
BENCHMARK(KeysWhileAShareStalls)->Unit(benchmark::kMillisecond)->Iterations(200)->UseRealTime();

/// The resident memory of this program, in MB.
double Resident()
{
    std::ifstream file("/proc/self/statm");
    double pages = 0;
    file >> pages >> pages;
    return pages * 4096 / 1e6;
}

/// Full pictures on every 50th page. What 500 turns leave behind, when as many went before.
void TurnFiveHundredPages(benchmark::State& state)
{
    constexpr int turns = 500;
    PageBench bench;
    const auto turn = [&bench] {
        for (int page = 0; page < turns; ++page) {
            if (page % 2 == 0) {
                bench.panel.OperateNextPage();
            } else {
                bench.panel.OperatePrevPage();
            }
            bench.Paint();
            if (page % 50 == 0) bench.WaitUntilPageIsFull();
        }
    };
    turn();
    const double before = Resident();
    for (auto _ : state) turn();
    state.counters["MBgrown"] = Resident() - before;
    state.counters["MBinHand"] = static_cast<double>(FileLoader::Ours().BytesInHand()) / 1e6;
}
BENCHMARK(TurnFiveHundredPages)->Iterations(1)->Unit(benchmark::kMillisecond);

/// The whole window with a delivery in pages of six.
struct FrameBench
{
    explicit FrameBench(int photos)
    {
        frame = std::make_unique<MainFrame>();
        frame->resize(windowSize);
        frame->show();
        frame->OpenDelivery(SampleFolder(photos), PhotoXMLMlit);
        frame->activateWindow();
        if (!QTest::qWaitForWindowActive(frame.get())) std::abort();
        QTest::keyClick(frame.get(), Qt::Key_5, Qt::ControlModifier);
        QCoreApplication::processEvents();
        cell = frame->findChild<ToviSpiCtrl*>();
    }

    TestHost services;
    std::unique_ptr<MainFrame> frame;
    ToviSpiCtrl* cell = nullptr;
};

void BarePaintOfACell(benchmark::State& state)
{
    const FrameBench bench(static_cast<int>(state.range(0)));
    for (auto _ : state) bench.cell->repaint();
}
BENCHMARK(BarePaintOfACell)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond);

void LabelByKeyToPaintedCell(benchmark::State& state)
{
    const FrameBench bench(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QTest::keyClick(bench.cell, Qt::Key_2);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(LabelByKeyToPaintedCell)->Arg(100)->Arg(100'000)->Unit(benchmark::kMillisecond);
} // namespace
