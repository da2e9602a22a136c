// The lists of all photographs: filling them, up to the first painted screen, and scrolling the
// thumbnails on by a screen, beside the bare decoding of the same pictures at a reduced size.

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "Samples.h"
#include "support/OpenedSample.h"
#include "windows/list/PhotoListContent.h"
#include "windows/list/ToviPhotoListCtrl.h"

#include <benchmark/benchmark.h>

#include <QAbstractItemView>
#include <QImageReader>
#include <QScrollBar>

namespace
{
constexpr QSize windowSize(1280, 800);

/// A list over an opened delivery.
struct ListBench
{
    ListBench(GaluListCtrl::Look look, const CString& folder)
    {
        ToviEnouDataFactory factory;
        document.reset(factory.Create(&host, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
        document->Load();
        setting = document->GetVisualSetting();
        content.SetDocument(document.get());
        window.resize(windowSize);
        list = new ToviPhotoListCtrl(look, content, &window);
        list->resize(windowSize);
        window.show();
    }

    QScrollBar* Bar() const { return list->View()->verticalScrollBar(); }

    /// The photographs of the next screen; from the start again behind the last.
    std::vector<CString> NextScreen()
    {
        Bar()->setValue(Bar()->value() == Bar()->maximum() ? 0
                                                           : Bar()->value() + Bar()->pageStep());
        std::vector<CString> paths;
        for (int row = 0; row < content.Count(); ++row) {
            const QRect place = list->GetItemRect(row);
            if (!place.intersects(list->View()->viewport()->rect())) continue;
            paths.push_back(document->GetPhoto(row)->GetImagePath());
        }
        return paths;
    }

    TestHost services;
    NotingDocument host;
    std::unique_ptr<ToviData> document;
    ToviPhotoCtrlVisualSetting setting;
    PhotoListContent content{setting};
    QWidget window;
    ToviPhotoListCtrl* list;
};

void FillThumbnailList(benchmark::State& state)
{
    ListBench bench(GaluListCtrl::Look::Icon, SampleFolder(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        bench.list->SetupThumbListCtrl();
        bench.window.grab();
    }
}
BENCHMARK(FillThumbnailList)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void FillManagementList(benchmark::State& state)
{
    ListBench bench(GaluListCtrl::Look::Report, SampleFolder(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        bench.list->SetupMngmntListCtrl();
        bench.window.grab();
    }
}
BENCHMARK(FillManagementList)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// The folder of a delivery whose photographs have pictures.
CString PicturesFolder()
{
    static const TempFolder temp;
    static const bool made = [] {
        DeliveryBuilder({.photos = 200, .drawings = 0}).Write(temp.Path());
        return true;
    }();
    return made ? temp.Path("PHOTO") : CString();
}

void ScrollThumbnailsByAScreen(benchmark::State& state)
{
    ListBench bench(GaluListCtrl::Look::Icon, PicturesFolder());
    bench.list->SetupThumbListCtrl();
    std::size_t photos = 0;
    for (auto _ : state) {
        state.PauseTiming();
        photos += bench.NextScreen().size();
        bench.list->UpdateImageList();
        state.ResumeTiming();
        bench.window.grab();
    }
    state.counters["photos"] =
        static_cast<double>(photos) / static_cast<double>(state.iterations());
}
BENCHMARK(ScrollThumbnailsByAScreen)->Unit(benchmark::kMillisecond);

void BareScaledDecodesOfAScreen(benchmark::State& state)
{
    ListBench bench(GaluListCtrl::Look::Icon, PicturesFolder());
    bench.list->SetupThumbListCtrl();
    std::size_t photos = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::vector<CString> paths = bench.NextScreen();
        photos += paths.size();
        state.ResumeTiming();
        for (const CString& path : paths) {
            QImageReader reader(QString::fromStdString(path));
            reader.setScaledSize({400, 300});
            benchmark::DoNotOptimize(reader.read());
        }
    }
    state.counters["photos"] =
        static_cast<double>(photos) / static_cast<double>(state.iterations());
}
BENCHMARK(BareScaledDecodesOfAScreen)->Unit(benchmark::kMillisecond);
} // namespace
