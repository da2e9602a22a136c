// Loading the settings of a delivery beside a bare reading of the profile's bytes, and the text
// pairs of many photographs beside bare copies of the same texts.

#include "benchmarks/Samples.h"
#include "items/Definition.h"
#include "items/ToviItemDef.h"
#include "items/ToviItemShowSettings.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "items/ToviTextPair.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/store/FileProfileStore.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>

namespace
{
constexpr int photos = 10000;

/// A delivery whose settings were loaded once, with a profile in a file.
struct Configured
{
    Configured()
    {
        InstallHostServices({nullptr, &profile, "Tovi", RunningProgramPath()});
        document = OpenSample(SampleFolder(photos));
        document->Load();
    }
    ~Configured()
    {
        document.reset();
        InstallHostServices({});
    }

    TempFolder temp;
    FileProfileStore profile{temp.Path("profile.ini")};
    std::unique_ptr<ToviData> document;
};

void LoadSettings(benchmark::State& state)
{
    const Configured configured;
    for (auto _ : state) configured.document->Load();
}
BENCHMARK(LoadSettings)->Unit(benchmark::kMicrosecond);

void BareRead(benchmark::State& state)
{
    const Configured configured;
    for (auto _ : state) {
        std::ifstream file(configured.temp.Path("profile.ini"), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(BareRead)->Unit(benchmark::kMicrosecond);

/// The items of the delivery itself; none of the file or of Exif.
ToviItemShowSettings DeliveryItems(const ToviData& document)
{
    ToviItemShowSettings items = document.GetVisualSetting().GetItemShowSettings();
    for (ToviItemShowSetting& item : items) item.Bold(item.infoType == InfoDelivery);
    return items;
}

void TextPairs(benchmark::State& state)
{
    const Configured configured;
    const ToviItemShowSettings items = DeliveryItems(*configured.document);
    for (auto _ : state) {
        for (const ToviPhoto* photo : *configured.document->GetPhotoDataArray()) {
            ToviTextPairArray pairs;
            photo->GetTextPairs(configured.document->GetItemDef(), items, pairs);
            benchmark::DoNotOptimize(pairs.begin());
        }
    }
}
BENCHMARK(TextPairs)->Unit(benchmark::kMillisecond);

void BareCopies(benchmark::State& state)
{
    const Configured configured;
    const ToviItemDef& def = *configured.document->GetItemDef();
    for (auto _ : state) {
        for (const ToviPhoto* photo : *configured.document->GetPhotoDataArray()) {
            std::vector<std::pair<CString, CString>> pairs;
            for (const ToviItem& item : photo->GetItems()) {
                const Definition& definition = def[item.GetDefIndex()];
                if (definition.show != ShowMainList) continue;
                pairs.emplace_back(definition.title, item.GetValue());
            }
            benchmark::DoNotOptimize(pairs.data());
        }
    }
}
BENCHMARK(BareCopies)->Unit(benchmark::kMillisecond);
} // namespace
