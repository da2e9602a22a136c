// Parsing the construction control values of every photograph, beside a bare scan of the same texts
// for the separators and a bare making of the same values.

#include "benchmarks/Samples.h"
#include "imagefacts/ControlValueParser.h"
#include "imagefacts/ToviControlValueArray.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace
{
constexpr std::string_view separators[] = {"、", ":", "・"};
constexpr const char* forms[] = {
    "As舗装工(下層路盤工):設計寸法400mm・実測寸法405mm",
    "幅:設計値 3500mm・実測値 3512mm・差 +12mm、厚さ:設計値 150mm・実測値 153mm・差 +3mm",
    "基準高:設計 10.250・実測 10.262",
};

/// Gives every photograph a text in the usual form.
std::vector<CString> AddControlTexts(ToviData& document)
{
    std::vector<CString> texts;
    const int item = document.GetItemDef()->GetIndexFromTitle(controlValueTitle);
    for (ToviPhoto* photo : *document.GetPhotoDataArray()) {
        texts.emplace_back(forms[texts.size() % std::size(forms)]);
        ToviItemArray& items = photo->GetItems();
        const auto found = std::find_if(items.begin(), items.end(), [item](const ToviItem& known) {
            return known.GetDefIndex() == item;
        });
        if (found == items.end()) {
            items.Add(ToviItem(item, texts.back().c_str()));
        } else {
            found->SetValue(texts.back().c_str());
        }
    }
    return texts;
}

const auto sizes = [](benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
};

struct Opened
{
    explicit Opened(const benchmark::State& state)
    {
        InstallHostServices({nullptr, &services.profile, "Tovi", RunningProgramPath()});
        document = OpenSample(SampleFolder(static_cast<int>(state.range(0))));
        texts = AddControlTexts(*document);
    }

    TestHost services;
    std::unique_ptr<ToviData> document;
    std::vector<CString> texts;
};

void BareSeparatorScan(benchmark::State& state)
{
    const Opened opened(state);
    for (auto _ : state) {
        int found = 0;
        for (const std::string_view text : opened.texts) {
            for (const std::string_view separator : separators) {
                for (std::size_t at = text.find(separator); at != std::string_view::npos;
                     at = text.find(separator, at + separator.size())) {
                    ++found;
                }
            }
        }
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(BareSeparatorScan)->Apply(sizes);

void BareMakingOfValues(benchmark::State& state)
{
    const Opened opened(state);
    std::vector<ToviControlValues> parsed(opened.texts.size());
    for (std::size_t i = 0; i < parsed.size(); ++i) ParseControlValues(opened.texts[i], parsed[i]);
    for (auto _ : state) {
        for (const ToviControlValues& values : parsed) {
            ToviControlValues made;
            for (const auto& value : values) made.Add(std::make_unique<ToviControlValue>(*value));
            benchmark::DoNotOptimize(made);
        }
    }
}
BENCHMARK(BareMakingOfValues)->Apply(sizes);

void ParseControlTexts(benchmark::State& state)
{
    const Opened opened(state);
    for (auto _ : state) {
        for (const CString& text : opened.texts) {
            ToviControlValues values;
            ParseControlValues(text, values);
            benchmark::DoNotOptimize(values);
        }
    }
}
BENCHMARK(ParseControlTexts)->Apply(sizes);

void ControlValuesOfPhotographs(benchmark::State& state)
{
    const Opened opened(state);
    for (auto _ : state) {
        for (const ToviPhoto* photo : *opened.document->GetPhotoDataArray()) {
            ToviControlValueArray values;
            benchmark::DoNotOptimize(photo->GetControlValueArray(values));
        }
    }
}
BENCHMARK(ControlValuesOfPhotographs)->Apply(sizes);
} // namespace
