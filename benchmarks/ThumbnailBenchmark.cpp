// A thumbnail, beside the bare decoding of the same picture at a reduced size.

#include "BareJpeg.h"

namespace
{
void BareScaledDecode(benchmark::State& state)
{
    const CString path = PhotoPath();
    for (auto _ : state) DecodeBare(path, 4);
}
BENCHMARK(BareScaledDecode)->Unit(benchmark::kMillisecond);

void LoadThumb(benchmark::State& state)
{
    const CString path = PhotoPath();
    LumImage image;
    for (auto _ : state) image.LoadThumb(path.c_str());
}
BENCHMARK(LoadThumb)->Unit(benchmark::kMillisecond);
} // namespace
