// The check report, beside a bare filling of the same sheet: the same form opened, its rows
// repeated, one write for all texts and a save. The time until the office answers is told apart.

#include "benchmarks/Samples.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "platform/files/MibFile.h"
#include "reports/CheckStatusPages.h"
#include "reports/ToviCheckStatusFileOut.h"
#include "review/ToviLabelManager.h"
#include "support/Labels.h"
#include "work/Environment.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace
{
/// An office whose start and end are left out of the time.
class UntimedOffice : public SpreadsheetApplication
{
public:
    UntimedOffice(benchmark::State& measured, const CString& folder) : state(measured)
    {
        state.PauseTiming();
        office = StartSpreadsheet(folder, [] { return false; });
        state.ResumeTiming();
    }
    ~UntimedOffice() override
    {
        state.PauseTiming();
        office.reset();
        state.ResumeTiming();
    }
    std::unique_ptr<SpreadsheetBook> Open(const CString& path) override
    {
        return office ? office->Open(path) : nullptr;
    }

private:
    benchmark::State& state;
    std::unique_ptr<SpreadsheetApplication> office;
};

class SilentDocument : public CDocument
{
public:
    void UpdateAllViews(CWnd*, int, CObject*) override {}
};

std::unique_ptr<ToviData> OpenWithHost(const CString& folder)
{
    static SilentDocument host;
    ToviEnouDataFactory factory;
    return std::unique_ptr<ToviData>(
        factory.Create(&host, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
}

/// A delivery to report on, and a work folder.
struct Reported
{
    explicit Reported(int photos) : document(OpenWithHost(SampleFolder(photos)))
    {
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.Path(), temp.Path(), temp.Path(), temp.Path()},
                        {}});
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
        document->SetSelected(document.get(), true);
        for (int i = 0; i < photos; i += 3) {
            SetComment(*document, i, "測点番号と黒板の記載が違います。");
            PasteLabel(*document, i, LabelNg1);
        }
    }

    TestHost host;
    TempFolder temp;
    std::unique_ptr<ToviData> document;
};

void OfficeAnswers(benchmark::State& state)
{
    const TestHost host;
    for (auto _ : state) {
        const TempFolder folder;
        if (!StartSpreadsheet(folder.Path(), [] { return false; }))
            state.SkipWithError("LibreOffice isn't installed");
    }
}
BENCHMARK(OfficeAnswers)->Unit(benchmark::kMillisecond)->UseRealTime();

void BareFill(benchmark::State& state)
{
    const int photos = static_cast<int>(state.range(0));
    const TestHost host;
    const TempFolder temp;
    // The office sees its own folder alone.
    const CString form = temp.Path("form.xls");
    std::filesystem::copy_file(MibProgramPath() + "CHKPHOTO.XLS", form);
    const int pages = PageSizes(photos).GetSize();
    const std::vector<std::vector<CString>> rows(
        static_cast<std::size_t>(pages * rowsPerPage - 1),
        {"1", "基層工出来形測定", "No.5", "ＮＧ", "追記、測点番号と黒板の記載が違います。"});
    for (auto _ : state) {
        // A new one each time, as the report has: the first form takes it longest.
        UntimedOffice office(state, temp.Path());
        const auto book = office.Open(form);
        const bool filled = book && book->RepeatRows(rowsPerPage, 5, pages) &&
                            book->WriteTexts(2, rows) &&
                            book->Save(temp.Path("bare.xls"), SpreadsheetFormat::Xls);
        if (!filled) state.SkipWithError("not filled");
    }
}
BENCHMARK(BareFill)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

void CheckReport(benchmark::State& state)
{
    Reported reported(static_cast<int>(state.range(0)));
    ToviCheckStatusFileOut writer(*reported.document, *reported.document->GetLabelManager(),
                                  [&](const CString& folder, const std::function<bool()>&) {
                                      return std::make_unique<UntimedOffice>(state, folder);
                                  });
    for (auto _ : state) {
        const auto outcome = writer.FileOut("", reported.temp.Path("report.xls"));
        if (outcome != CheckStatusOutcome::Written) state.SkipWithError("not written");
    }
}
BENCHMARK(CheckReport)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
