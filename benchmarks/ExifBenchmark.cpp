// All Exif facts of one photograph, beside a bare load of its Exif data.

#include "imagefacts/ToviExifInfo.h"
#include "sample/DeliveryBuilder.h"
#include "support/TempFolder.h"

#include <benchmark/benchmark.h>

#include <libexif/exif-data.h>

namespace
{
/// The path of a photograph with Exif data.
CString PhotoPath()
{
    static const TempFolder temp;
    static CString path;
    if (path.empty()) {
        DeliveryBuilder({.photos = 1, .drawings = 0})
            .Set(0, "写真ファイル名", "P0000001.JPG")
            .Write(temp.Path("d"));
        path = temp.Path("d/PHOTO/PIC/P0000001.JPG");
    }
    return path;
}

void BareExifLoad(benchmark::State& state)
{
    const CString path = PhotoPath();
    for (auto _ : state) {
        ExifData* data = exif_data_new_from_file(path.c_str());
        benchmark::DoNotOptimize(data);
        exif_data_unref(data);
    }
}
BENCHMARK(BareExifLoad)->Unit(benchmark::kMicrosecond);

void LoadExifInfo(benchmark::State& state)
{
    const CString path = PhotoPath();
    for (auto _ : state) {
        ToviExifInfo exif;
        exif.Load(path.c_str());
        benchmark::DoNotOptimize(exif.IsLoaded());
    }
}
BENCHMARK(LoadExifInfo)->Unit(benchmark::kMicrosecond);
} // namespace
