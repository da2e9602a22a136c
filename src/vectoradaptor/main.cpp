// tovi-svg WIDTH HEIGHT: draws the SVG file on standard input, as large as it fits into WIDTH by
// HEIGHT pixels but never enlarged (0 0: in its own size), and writes the picture to standard
// output: width and height as two 32-bit numbers and its rows of 32-bit pixels 0xffRRGGBB, all in
// the machine's byte order. Ends with 1 when that can't be done.
//
// A program of its own, since what a hostile drawing does to the drawing library, to memory and to
// time ends here: it is killed when it takes too long, and nothing but this one picture is lost.
// From behind its fence it sees nothing but fonts and the system's own files, and reaches nobody.

#include "platform/fence/ProcessFence.h"

#include <fontconfig/fontconfig.h>
#include <gio/gunixinputstream.h>
#include <librsvg/rsvg.h>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace
{
constexpr rlim_t cpuSeconds = 5;
constexpr rlim_t mostMemory = rlim_t{2} << 30;
constexpr double mostPixels = 40e6;
constexpr double dotsPerInch = 96;

template <class T, void (*release)(T*)>
struct Release
{
    void operator()(T* object) const { release(object); }
};
using Surface = std::unique_ptr<cairo_surface_t, Release<cairo_surface_t, cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Release<cairo_t, cairo_destroy>>;

struct Size
{
    double width = 0;
    double height = 0;

    bool IsEmpty() const { return !(width > 0 && height > 0); }
};

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

/// The size that the drawing says it has; without one that of its view box, else of what is drawn.
Size SizeOf(RsvgHandle* drawing)
{
    Size size;
    if (rsvg_handle_get_intrinsic_size_in_pixels(drawing, &size.width, &size.height) &&
        !size.IsEmpty()) {
        return size;
    }
    gboolean hasWidth;
    gboolean hasHeight;
    gboolean hasViewBox;
    RsvgLength width;
    RsvgLength height;
    RsvgRectangle box;
    rsvg_handle_get_intrinsic_dimensions(drawing, &hasWidth, &width, &hasHeight, &height,
                                         &hasViewBox, &box);
    if (hasViewBox) return {box.width, box.height};
    if (!rsvg_handle_get_geometry_for_element(drawing, nullptr, &box, nullptr, nullptr)) return {};
    return {box.width, box.height};
}

Size Fitted(Size size, Size within)
{
    double scale = std::min(1.0, std::sqrt(mostPixels / size.width / size.height));
    if (!within.IsEmpty()) {
        scale = std::min({scale, within.width / size.width, within.height / size.height});
    }
    return {std::max(1.0, std::round(size.width * scale)),
            std::max(1.0, std::round(size.height * scale))};
}

/// Nothing outside the drawing is ever fetched: without a base no link but those with the data in
/// them is followed.
RsvgHandle* ReadDrawing()
{
    GInputStream* input = g_unix_input_stream_new(STDIN_FILENO, FALSE);
    RsvgHandle* drawing = rsvg_handle_new_from_stream_sync(
        input, nullptr, RSVG_HANDLE_FLAG_UNLIMITED, nullptr, nullptr);
    if (drawing != nullptr) rsvg_handle_set_dpi(drawing, dotsPerInch);
    return drawing;
}

Surface Draw(RsvgHandle* drawing, Size within)
{
    const Size own = SizeOf(drawing);
    if (own.IsEmpty() || !std::isfinite(own.width * own.height)) return {};
    const Size size = Fitted(own, within);
    Surface picture(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(size.width),
                                               static_cast<int>(size.height)));
    const Context context(cairo_create(picture.get()));
    cairo_set_source_rgb(context.get(), 1, 1, 1);
    cairo_paint(context.get());
    const RsvgRectangle whole = {0, 0, size.width, size.height};
    if (!rsvg_handle_render_document(drawing, context.get(), &whole, nullptr)) return {};
    cairo_surface_flush(picture.get());
    return cairo_status(context.get()) == CAIRO_STATUS_SUCCESS ? std::move(picture) : Surface();
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
    RsvgHandle* drawing = ReadDrawing();
    if (drawing == nullptr) return EXIT_FAILURE;
    const Surface picture = Draw(drawing, {std::atof(argv[1]), std::atof(argv[2])});
    // What was read goes with the process.
    std::_Exit(picture && WritePicture(picture.get()) ? EXIT_SUCCESS : EXIT_FAILURE);
}
