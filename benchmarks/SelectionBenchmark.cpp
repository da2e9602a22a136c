// Selecting the root, sorted and extracted, beside std::sort over the same keys and a bare loop
// over the photographs; listing the values of an item, beside a bare set of them.

#include "benchmarks/Samples.h"
#include "extraction/ToviExtractionDlg.h"
#include "extraction/ToviSortCondition.h"
#include "extraction/ToviSorter.h"
#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ItemColumns.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/text/Cp932.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <unordered_set>

namespace
{
constexpr const char* textKey = "撮影年月日";
constexpr const char* longTextKey = "写真タイトル";
constexpr const char* numberKey = "シリアル番号";

class SilentDocument : public CDocument
{
public:
    void UpdateAllViews(CWnd*, int, CObject*) override {}
};

struct Window : ToviExtractionDlg
{
    const ExtractionConditions& GetConditions() const override { return conditions; }
    void CancelExtraction(CancelExt) override {}

    ExtractionConditions conditions;
};

/// A delivery with its tree, whose values are in no order; no display is installed.
struct Opened
{
    explicit Opened(const benchmark::State& state)
    {
        InstallHostServices({nullptr, &services.profile, "Tovi", RunningProgramPath()});
        ToviEnouDataFactory factory;
        const CString folder = SampleFolder(static_cast<int>(state.range(0)));
        document.reset(factory.Create(&host, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
        Shuffle(numberKey);
    }

    /// Spreads the values of the item, which grow with the file.
    void Shuffle(const char* title)
    {
        constexpr unsigned stride = 7919;
        const int item = document->GetItemDef()->GetIndexFromTitle(title);
        const auto count = static_cast<unsigned>(document->GetTotalCountPhoto());
        for (unsigned i = 0; i < count; ++i) {
            for (ToviItem& value :
                 (*document->GetPhotoDataArray())[static_cast<int>(i)]->GetItems()) {
                if (value.GetDefIndex() != item) continue;
                value.SetValue(std::to_string(i * stride % count).c_str());
            }
        }
    }

    std::vector<CString> Values(const char* title) const
    {
        std::vector<CString> values;
        const int item = document->GetItemDef()->GetIndexFromTitle(title);
        for (const int index : document->GetCurrentArray()) {
            values.emplace_back(document->GetPhotoActualPhotoArray(index)->GetTitle(item));
        }
        return values;
    }

    TestHost services;
    SilentDocument host;
    std::unique_ptr<ToviData> document;
};

const auto sizes = [](benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
};

void SelectRoot(benchmark::State& state)
{
    const Opened opened(state);
    for (auto _ : state) opened.document->SetSelected(opened.document.get(), true);
}
BENCHMARK(SelectRoot)->Apply(sizes);

void BareSort(benchmark::State& state, const char* key)
{
    const Opened opened(state);
    std::vector<std::string> keys;
    for (const CString& value : opened.Values(key)) keys.push_back(Cp932::SortKey(value));
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::string> sorted = keys;
        state.ResumeTiming();
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
}
BENCHMARK_CAPTURE(BareSort, Date, textKey)->Apply(sizes);
BENCHMARK_CAPTURE(BareSort, Title, longTextKey)->Apply(sizes);

/// The keys of the numeric sort are the numbers with the photo indexes, which decide between equal
/// ones.
void BareSortOfNumbers(benchmark::State& state)
{
    const Opened opened(state);
    std::vector<std::pair<int, int>> keys;
    for (const CString& value : opened.Values(numberKey)) {
        keys.emplace_back(std::atoi(value.c_str()), static_cast<int>(keys.size()));
    }
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::pair<int, int>> sorted = keys;
        state.ResumeTiming();
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
}
BENCHMARK(BareSortOfNumbers)->Apply(sizes);

void SelectRootSorted(benchmark::State& state, const char* key)
{
    const Opened opened(state);
    ToviSortCondition condition;
    condition.ExecSort(true);
    condition.SetKeyItem(key);
    opened.document->SetSortCondition(condition);
    for (auto _ : state) opened.document->SetSelected(opened.document.get(), true);
}
BENCHMARK_CAPTURE(SelectRootSorted, Date, textKey)->Apply(sizes);
BENCHMARK_CAPTURE(SelectRootSorted, Title, longTextKey)->Apply(sizes);
BENCHMARK_CAPTURE(SelectRootSorted, Number, numberKey)->Apply(sizes);

/// The same where nobody has sorted by the item before: its column is made, too.
void FirstSort(benchmark::State& state, const char* key)
{
    const Opened opened(state);
    for (auto _ : state) {
        const ItemColumns columns(*opened.document->GetPhotoDataArray());
        ToviSorter sorter(columns, *opened.document->GetItemDef());
        ToviPhotoRef sorted = opened.document->GetCurrentArray();
        sorter.PrepareSort(key, sorted);
        sorter.QuickSort(true, sorted);
    }
}
BENCHMARK_CAPTURE(FirstSort, Date, textKey)->Apply(sizes);
BENCHMARK_CAPTURE(FirstSort, Title, longTextKey)->Apply(sizes);
BENCHMARK_CAPTURE(FirstSort, Number, numberKey)->Apply(sizes);

/// The yardstick of the extraction: the same questions about every photograph in a bare loop.
void BareLoop(benchmark::State& state)
{
    const Opened opened(state);
    const int item = opened.document->GetItemDef()->GetIndexFromTitle(textKey);
    for (auto _ : state) {
        std::vector<int> found;
        for (const int index : opened.document->GetCurrentArray()) {
            const ToviPhoto& photo = *opened.document->GetPhotoActualPhotoArray(index);
            const std::string_view date = photo.GetTitle(item);
            if (photo.IsNotCheck() && date >= "2000-01-01" && date <= "2099-12-31") {
                found.push_back(index);
            }
        }
        benchmark::DoNotOptimize(found.data());
    }
}
BENCHMARK(BareLoop)->Apply(sizes);

void SelectRootExtracted(benchmark::State& state, int orMode)
{
    const Opened opened(state);
    Window window;
    window.conditions.orMode = orMode;
    window.conditions.dateOn = true;
    window.conditions.dateFrom = "2000-01-01";
    window.conditions.dateTo = "2099-12-31";
    (orMode != 0 ? window.conditions.ngPhoto : window.conditions.notcheckPhoto) = true;
    opened.document->SetExtractionData(&window);
    opened.document->ExecExtraction();
    for (auto _ : state) opened.document->SetSelected(opened.document.get(), true);
    opened.document->SetExtractionData(nullptr);
}
BENCHMARK_CAPTURE(SelectRootExtracted, And, 0)->Apply(sizes);
BENCHMARK_CAPTURE(SelectRootExtracted, Or, 1)->Apply(sizes);

/// The yardstick of the list of values: the same values into a bare set.
void BareSet(benchmark::State& state, const char* title)
{
    const Opened opened(state);
    const std::vector<CString> values = opened.Values(title);
    for (auto _ : state) {
        const std::unordered_set<std::string_view> known(values.begin(), values.end());
        benchmark::DoNotOptimize(known.size());
    }
}
BENCHMARK_CAPTURE(BareSet, Few, longTextKey)->Apply(sizes);
BENCHMARK_CAPTURE(BareSet, AllDifferent, numberKey)->Apply(sizes);

void ListValues(benchmark::State& state, const char* title)
{
    const Opened opened(state);
    for (auto _ : state) {
        CStringArray values;
        opened.document->GetPhotoItemValue(title, values);
        benchmark::DoNotOptimize(values.GetSize());
    }
}
BENCHMARK_CAPTURE(ListValues, Few, longTextKey)->Apply(sizes);
BENCHMARK_CAPTURE(ListValues, AllDifferent, numberKey)->Apply(sizes);
} // namespace
