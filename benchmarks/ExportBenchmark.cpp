// The export of photographs, beside a bare copy of the same files.

#include "benchmarks/Samples.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "reports/PhotoExport.h"

#include <benchmark/benchmark.h>

namespace
{
namespace fs = std::filesystem;

constexpr std::size_t photoBytes = 400'000;

class SilentDocument : public CDocument
{
public:
    void UpdateAllViews(CWnd*, int, CObject*) override {}
};

/// The folder of the PHOTO.XML of a delivery whose photographs all have their files.
CString DeliveryFolder(int photos)
{
    static const TempFolder temp;
    const CString name = std::to_string(photos);
    if (fs::exists(temp.Path(name))) return temp.Path(name) + "/PHOTO";
    const DeliveryBuilder builder({.photos = photos, .drawings = 0, .images = false});
    builder.Write(temp.Path(name));
    for (int i = 0; i < photos; ++i) {
        temp.Write(name + "/PHOTO/PIC/" + builder.Photo(i).Value("写真ファイル名"),
                   CString(photoBytes, static_cast<char>(i)));
    }
    return temp.Path(name) + "/PHOTO";
}

void BareCopy(benchmark::State& state)
{
    const auto photos = static_cast<int>(state.range(0));
    const CString folder = DeliveryFolder(photos) + "/PIC";
    for (auto _ : state) {
        const TempFolder out;
        for (const auto& entry : fs::directory_iterator(folder)) {
            fs::copy_file(entry.path(), out.Path(entry.path().filename().string()));
        }
        state.PauseTiming();
        fs::remove_all(out.Path());
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * photos);
}
BENCHMARK(BareCopy)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

void Export(benchmark::State& state)
{
    const TestHost host;
    const auto photos = static_cast<int>(state.range(0));
    SilentDocument silent;
    ToviEnouDataFactory factory;
    const std::unique_ptr<ToviData> document(
        factory.Create(&silent, DeliveryFolder(photos).c_str(), PhotoXMLMlit, nullptr, nullptr));
    document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
    document->SetSelected(document.get(), true);
    for (auto _ : state) {
        const TempFolder out;
        PhotoExport work(*document);
        if (!work.IsFree(out.Path()) || work.CopyAll().copied != photos) {
            state.SkipWithError("not all photographs were copied");
            break;
        }
        state.PauseTiming();
        fs::remove_all(out.Path());
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * photos);
}
BENCHMARK(Export)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
} // namespace
