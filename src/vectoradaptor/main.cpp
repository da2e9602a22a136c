// tovi-svg WIDTH HEIGHT: draws the SVG file on standard input, as large as it fits into WIDTH by
// HEIGHT pixels but never enlarged (0 0: in its own size), and writes the picture to standard
// output: width and height as two 32-bit numbers and its rows of 32-bit pixels 0xffRRGGBB, all in
// the machine's byte order. Ends with 1 when that can't be done.
//
// A program of its own, since what a hostile drawing does to the drawing library, to memory and to
// time ends here: it is killed when it takes too long, and nothing but this one picture is lost.
// From behind its fence it sees nothing but fonts and the system's own files, and reaches nobody.

#include "platform/fence/ProcessFence.h"
#include "vectoradaptor/Drawing.h"

#include <fontconfig/fontconfig.h>
#include <gio/gunixinputstream.h>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

namespace
{
constexpr rlim_t cpuSeconds = 5;
constexpr rlim_t mostMemory = rlim_t{2} << 30;

void LimitOurselves()
{
    const rlimit time = {cpuSeconds, cpuSeconds};
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_CPU, &time);
    setrlimit(RLIMIT_CORE, &none);
#ifndef __SANITIZE_ADDRESS__
    const rlimit memory = {mostMemory, mostMemory};
    setrlimit(RLIMIT_AS, &memory);
#endif
}

void Append(FcStrList* folders, std::vector<std::string>& out)
{
    while (const FcChar8* folder = FcStrListNext(folders)) {
        out.emplace_back(reinterpret_cast<const char*>(folder));
    }
    FcStrListDone(folders);
}

void FenceOurselves()
{
    // The configuration, which may lie anywhere, tells where the fonts are.
    FcInit();
    FencePlan plan = {.readable = {"/usr", "/lib", "/lib64"}};
    Append(FcConfigGetFontDirs(nullptr), plan.readable);
    Append(FcConfigGetCacheDirs(nullptr), plan.readable);
    ProcessFence(plan).Enter();
}

bool Write(const void* data, std::size_t size)
{
    const char* at = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = write(STDOUT_FILENO, at, size);
        if (written <= 0) return false;
        at += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool WritePicture(cairo_surface_t* picture)
{
    const std::int32_t size[] = {cairo_image_surface_get_width(picture),
                                 cairo_image_surface_get_height(picture)};
    const unsigned char* row = cairo_image_surface_get_data(picture);
    if (row == nullptr || !Write(size, sizeof size)) return false;
    for (std::int32_t y = 0; y < size[1]; ++y) {
        if (!Write(row, static_cast<std::size_t>(size[0]) * 4)) return false;
        row += cairo_image_surface_get_stride(picture);
    }
    return true;
}
} // namespace

int main(int argc, char** argv)
{
    LimitOurselves();
    FenceOurselves();
    if (argc != 3) return EXIT_FAILURE;
    GInputStream* input = g_unix_input_stream_new(STDIN_FILENO, FALSE);
    const Surface picture = DrawSvg(input, {std::atof(argv[1]), std::atof(argv[2])});
    // What is left goes with the process.
    std::_Exit(picture && WritePicture(picture.get()) ? EXIT_SUCCESS : EXIT_FAILURE);
}
