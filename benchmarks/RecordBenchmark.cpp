// Saving and loading an inspection record, beside the bare writing of the same tree and the bare
// decoding and parsing of the same bytes.

#include "benchmarks/Samples.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/files/MibFile.h"
#include "platform/text/Cp932.h"
#include "review/RecordTags.h"
#include "support/Labels.h"
#include "work/Environment.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <fstream>

namespace
{
/// A delivery under inspection, with a record of it in a folder of its own.
struct Inspected
{
    explicit Inspected(int photos) : document(OpenSample(SampleFolder(photos)))
    {
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.Path(), temp.Path(), temp.Path(), temp.Path()},
                        {}});
        InstallHostServices({nullptr, &host.profile, "Tovi", RunningProgramPath()});
        for (int i = 0; i < photos; i += 3) {
            SetComment(*document, i, "測点番号と黒板の記載が違います。");
            PasteLabel(*document, i, LabelNg1);
        }
        document->SaveExamination(path.c_str(), nullptr, &reason);
    }

    TestHost host;
    TempFolder temp;
    CString path = temp.Path("record.xml");
    std::unique_ptr<ToviData> document;
    int reason = -1;
};

/// The tree of the record, made node by node as it is in the record itself.
void BuildTree(pugi::xml_document& tree, ToviData& document)
{
    pugi::xml_node root = tree.append_child(RecordTags::root);
    pugi::xml_node states = root.append_child(RecordTags::states);
    for (const ToviPhoto* photo : *document.GetPhotoDataArray()) {
        pugi::xml_node node = states.append_child(RecordTags::photo);
        node.append_child(RecordTags::comment).text().set(photo->GetComment().c_str());
        for (unsigned int slot = 0; slot < labelCount; ++slot) {
            node.append_child(RecordTags::labels[slot].data())
                .text()
                .set(photo->IsLabelPasted(slot) ? 1 : 0);
        }
    }
}

void BareWrite(benchmark::State& state)
{
    Inspected inspected(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        pugi::xml_document tree;
        BuildTree(tree, *inspected.document);
        std::ofstream file(inspected.temp.Path("bare.xml"), std::ios::binary);
        tree.save(file);
    }
}
BENCHMARK(BareWrite)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void SaveRecord(benchmark::State& state)
{
    Inspected inspected(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        inspected.document->SaveExamination(inspected.path.c_str(), nullptr, &inspected.reason);
    }
}
BENCHMARK(SaveRecord)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BareParse(benchmark::State& state)
{
    Inspected inspected(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CString text = *Cp932::Decode(*MibReadFile(inspected.path, std::size_t{1} << 30));
        pugi::xml_document tree;
        benchmark::DoNotOptimize(tree.load_buffer_inplace(
            text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8));
    }
}
BENCHMARK(BareParse)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void LoadRecord(benchmark::State& state)
{
    Inspected inspected(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        inspected.document->LoadExamination(inspected.path.c_str(), &inspected.reason);
    }
}
BENCHMARK(LoadRecord)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
} // namespace
