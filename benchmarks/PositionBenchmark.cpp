// The position window over a tree with a node for each photograph: opening it, and following the
// selection to another one, both up to what is painted.

#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "Samples.h"
#include "support/OpenedSample.h"
#include "windows/position/PositionWindow.h"
#include "windows/position/ToviConfirmDlg.h"

#include <benchmark/benchmark.h>

#include <QApplication>

namespace
{
constexpr const char* place = "撮影箇所";

/// A delivery whose photographs all lie at places of their own.
struct Scattered
{
    explicit Scattered(const benchmark::State& state)
    {
        ToviEnouDataFactory factory;
        const CString folder = SampleFolder(static_cast<int>(state.range(0)));
        document.reset(factory.Create(&host, folder.c_str(), PhotoXMLMlit, nullptr, nullptr));
        document->Load();
        const int item = document->GetItemDef()->GetIndexFromTitle(place);
        for (int index = 0; index < document->GetTotalCountPhoto(); ++index) {
            for (ToviItem& value : (*document->GetPhotoDataArray())[index]->GetItems()) {
                if (value.GetDefIndex() == item) value.SetValue(Format("測点%d", index).c_str());
            }
        }
        ToviPhotoCtrlVisualSetting setting = document->GetVisualSetting();
        setting.SetTreeType(ToviPhotoCtrlVisualSetting::TreePlace);
        document->SetVisualSetting(setting, false);
        document->BuildTreeNode(ToviPhotoCtrlVisualSetting::TreePlace);
        owner.show();
    }
    void Paint() { owner.findChild<ToviConfirmDlg*>()->grab(); }

    TestHost services;
    NotingDocument host;
    std::unique_ptr<ToviData> document;
    QWidget owner;
};

const auto sizes = [](benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
};

void OpenPosition(benchmark::State& state)
{
    Scattered scattered(state);
    for (auto _ : state) {
        PositionWindow window;
        window.Show(*scattered.document, &scattered.owner);
        scattered.Paint();
        state.PauseTiming();
        window.Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenPosition)->Apply(sizes);

void FollowPosition(benchmark::State& state)
{
    Scattered scattered(state);
    PositionWindow window;
    window.Show(*scattered.document, &scattered.owner);
    const int count = scattered.document->GetTotalCountPhoto();
    int photo = 0;
    for (auto _ : state) {
        photo = (photo + count / 2 + 1) % count;
        scattered.document->PhotoSelectSetting(photo);
        window.Follow(*scattered.document);
        scattered.Paint();
    }
}
BENCHMARK(FollowPosition)->Apply(sizes);
} // namespace
