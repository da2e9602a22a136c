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

namespace
{
/// The office is the same for all reports: it is started before the time is taken.
class SharedOffice : public SpreadsheetApplication
{
public:
    explicit SharedOffice(SpreadsheetApplication& shared) : office(shared) {}
    std::unique_ptr<SpreadsheetBook> Open(const CString& path) override
    {
        return office.Open(path);
    }

private:
    SpreadsheetApplication& office;
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

/// A delivery to report on, a work folder and a running office.
struct Reported
{
    explicit Reported(int photos) : document(OpenWithHost(SampleFolder(photos)))
    {
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.Path(), temp.Path(), temp.Path()},
                        {}});
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreeWorkTypeFull);
        document->SetSelected(document.get(), true);
        for (int i = 0; i < photos; i += 3) {
            SetComment(*document, i, "測点番号と黒板の記載が違います。");
            PasteLabel(*document, i, LabelNg1);
        }
        office = StartSpreadsheet(temp.MakeFolder("office"), [] { return false; });
    }

    TestHost host;
    TempFolder temp;
    std::unique_ptr<ToviData> document;
    std::unique_ptr<SpreadsheetApplication> office;
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
    Reported reported(photos);
    if (!reported.office) return state.SkipWithError("LibreOffice isn't installed");
    const int pages = PageSizes(photos).GetSize();
    const std::vector<std::vector<CString>> rows(
        static_cast<std::size_t>(pages * rowsPerPage - 1),
        {"1", "基層工出来形測定", "No.5", "ＮＧ", "追記、測点番号と黒板の記載が違います。"});
    for (auto _ : state) {
        const auto book = reported.office->Open(MibProgramPath() + "CHKPHOTO.XLS");
        const bool filled = book && book->RepeatRows(rowsPerPage, 5, pages) &&
                            book->WriteTexts(2, rows) &&
                            book->Save(reported.temp.Path("bare.xls"), SpreadsheetFormat::Xls);
        if (!filled) state.SkipWithError("not filled");
    }
}
BENCHMARK(BareFill)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

void CheckReport(benchmark::State& state)
{
    Reported reported(static_cast<int>(state.range(0)));
    if (!reported.office) return state.SkipWithError("LibreOffice isn't installed");
    ToviCheckStatusFileOut writer(*reported.document, *reported.document->GetLabelManager(),
                                  [&](const CString&, const std::function<bool()>&) {
                                      return std::make_unique<SharedOffice>(*reported.office);
                                  });
    for (auto _ : state) {
        const auto outcome = writer.FileOut("", reported.temp.Path("report.xls"));
        if (outcome != CheckStatusOutcome::Written) state.SkipWithError("not written");
    }
}
BENCHMARK(CheckReport)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
