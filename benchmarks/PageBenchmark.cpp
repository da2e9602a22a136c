// Turning a page of six photographs of two million pixels: until their thumbnails are on screen,
// and until the full pictures are, beside six bare decodes. And a label by key until its cell is
// painted again, beside a bare painting of the cell.

#include "BareJpeg.h"
#include "hosts/viewer/MainFrame.h"
#include "Samples.h"
#include "support/OpenedSample.h"
#include "windows/cell/ToviSpiCtrl.h"
#include "windows/page/ToviMpiPanel.h"

#include <QAction>
#include <QApplication>
#include <QTest>

#include <filesystem>
#include <fstream>

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
    PageBench()
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
        document.reset(
            factory.Create(&host, PagesFolder().c_str(), PhotoXMLMlit, nullptr, nullptr));
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

    bool IsPageFull() const
    {
        const int first = (panel.GetCurrentPage() - 1) * onPage;
        for (int position = first; position < first + onPage; ++position) {
            if (!document->GetPhoto(position)->IsImageLoaded()) return false;
        }
        return true;
    }
    void WaitUntilPageIsFull() const
    {
        while (!IsPageFull()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        Paint();
    }

    TestHost services;
    NotingDocument host;
    std::unique_ptr<ToviData> document;
    QWidget window;
    ToviMpiPanel panel;
};

void DecodePage(benchmark::State& state, int reduction)
{
    const CString path = PhotoPath();
    for (auto _ : state) {
        for (int photo = 0; photo < onPage; ++photo) DecodeBare(path, reduction);
    }
}

/// Turns a page each time; it is on screen once \p finish has returned.
template <class Finish>
void TurnPages(benchmark::State& state, const Finish& finish)
{
    PageBench bench;
    for (auto _ : state) {
        state.PauseTiming();
        bench.KeepPages();
        state.ResumeTiming();
        bench.panel.OperateNextPage();
        finish(bench);
    }
}

void BareScaledDecodesOfAPage(benchmark::State& state)
{
    DecodePage(state, 4);
}
BENCHMARK(BareScaledDecodesOfAPage)->Unit(benchmark::kMillisecond);

void TurnPageToThumbnails(benchmark::State& state)
{
    TurnPages(state, [](PageBench& bench) { bench.Paint(); });
}
BENCHMARK(TurnPageToThumbnails)->Unit(benchmark::kMillisecond);

void BareFullDecodesOfAPage(benchmark::State& state)
{
    DecodePage(state, 1);
}
BENCHMARK(BareFullDecodesOfAPage)->Unit(benchmark::kMillisecond);

/// The time counts the 100 ms that a key held down gets to turn on; what is done is the CPU's time.
void TurnPageToFullPictures(benchmark::State& state)
{
    TurnPages(state, [](PageBench& bench) { bench.WaitUntilPageIsFull(); });
}
BENCHMARK(TurnPageToFullPictures)->Unit(benchmark::kMillisecond);

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
