// Opening a delivery, beside the bare decoding and parsing of the same bytes.

#include "benchmarks/Samples.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/files/MibFile.h"
#include "platform/text/Cp932.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <malloc.h>

namespace
{
constexpr std::size_t noLimit = std::size_t{1} << 32;

/// Gives what was freed back to the system, so that each run pays for its memory as a program does
/// that has just been started.
void StartAfresh(benchmark::State& state)
{
    state.PauseTiming();
    malloc_trim(0);
    state.ResumeTiming();
}

void BareDecodeAndParse(benchmark::State& state)
{
    const CString folder = SampleFolder(static_cast<int>(state.range(0)));
    std::size_t bytesRead = 0;
    for (auto _ : state) {
        StartAfresh(state);
        const std::string bytes = *MibReadFile(folder + "/PHOTO.XML", noLimit);
        CString text = *Cp932::Decode(bytes);
        pugi::xml_document document;
        const bool parsed = document.load_buffer_inplace(
            text.data(), text.size(), pugi::parse_default | pugi::parse_embed_pcdata,
            pugi::encoding_utf8);
        benchmark::DoNotOptimize(parsed);
        bytesRead = bytes.size();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytesRead) * state.iterations());
}
BENCHMARK(BareDecodeAndParse)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void OpenDelivery(benchmark::State& state)
{
    const TestHost host;
    const CString folder = SampleFolder(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StartAfresh(state);
        auto document = OpenSample(folder);
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenDelivery)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BuildTree(benchmark::State& state)
{
    const TestHost host;
    const auto document = OpenSample(SampleFolder(static_cast<int>(state.range(0))));
    const auto type = static_cast<ToviPhotoCtrlVisualSetting::TreeType>(state.range(1));
    for (auto _ : state) document->BuildTreeNode(type);
}
BENCHMARK(BuildTree)->ArgsProduct({{10000, 100000}, {0, 1, 2}})->Unit(benchmark::kMillisecond);

void UpdateImagePaths(benchmark::State& state)
{
    const TestHost host;
    const auto document = OpenSample(SampleFolder(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        for (ToviPhoto* photo : *document->GetPhotoDataArray()) photo->UpdateImagePath();
    }
}
BENCHMARK(UpdateImagePaths)->Arg(10000)->Unit(benchmark::kMillisecond);
} // namespace
