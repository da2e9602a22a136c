// Searching a text in all items, as the user types it, beside a bare search for the same bytes in
// the same values in one piece; and the first search, which folds them, beside a bare copy.

#include "benchmarks/Samples.h"
#include "extraction/TextSearch.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhotoArray.h"

#include <benchmark/benchmark.h>

namespace
{
constexpr const char* typed = "舗装 No.3";
constexpr int itemsOfEach = 20;

/// Photographs of twenty items each, a third of them with a value that no other has, and a comment
/// on every tenth.
struct Searched
{
    explicit Searched(const benchmark::State& state)
    {
        InstallHostServices({nullptr, &services.profile, "Tovi", RunningProgramPath()});
        document = OpenSample(SampleFolder(static_cast<int>(state.range(0))));
        named = FindPhotoPathItems(*document->GetItemDef(), true);
        int number = 0;
        for (ToviPhoto* photo : *document->GetPhotoDataArray()) {
            ToviItemArray& items = photo->GetItems();
            const int title = items[0].GetDefIndex();
            while (items.GetSize() < itemsOfEach) {
                const bool own = items.GetSize() % 3 == 0;
                const CString value = "アスファルト舗装工 測点No." + std::to_string(number % 500);
                items.Add(ToviItem(title, (own ? value + std::to_string(number) : value).c_str()));
            }
            ++number;
        }
        for (int i = 0; i < number; ++i) all.Add(i);
    }

    TestHost services;
    std::unique_ptr<ToviData> document;
    PhotoPathItems named;
    ToviPhotoRef all;
};

const auto sizes = [](benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
};

CString AllValues(const Searched& sample)
{
    CString values;
    for (const ToviPhoto* photo : *sample.document->GetPhotoDataArray()) {
        for (const ToviItem& item : photo->GetItems()) values += item.GetValue() + '\n';
    }
    return values;
}

void BareFindInValues(benchmark::State& state)
{
    const CString values = AllValues(Searched(state));
    for (auto _ : state) {
        int count = 0;
        for (const std::string_view word : {"舗装", "No.3"}) {
            std::size_t place = values.find(word);
            for (; place != CString::npos; place = values.find(word, place + 1)) ++count;
        }
        benchmark::DoNotOptimize(count);
    }
}
BENCHMARK(BareFindInValues)->Apply(sizes);

void Search(benchmark::State& state)
{
    const Searched sample(state);
    TextSearch search(*sample.document->GetPhotoDataArray(), *sample.document->GetItemDef(),
                      sample.named);
    for (auto _ : state) {
        ToviPhotoRef found = sample.all;
        search.LookFor(typed);
        search.Narrow(found);
        benchmark::DoNotOptimize(found.GetSize());
    }
}
BENCHMARK(Search)->Apply(sizes);

void BareCopyOfValues(benchmark::State& state)
{
    const Searched sample(state);
    for (auto _ : state) benchmark::DoNotOptimize(AllValues(sample));
}
BENCHMARK(BareCopyOfValues)->Apply(sizes);

void FirstSearch(benchmark::State& state)
{
    const Searched sample(state);
    for (auto _ : state) {
        TextSearch search(*sample.document->GetPhotoDataArray(), *sample.document->GetItemDef(),
                          sample.named);
        ToviPhotoRef found = sample.all;
        search.LookFor(typed);
        search.Narrow(found);
        benchmark::DoNotOptimize(found.GetSize());
    }
}
BENCHMARK(FirstSearch)->Apply(sizes);
} // namespace
