// What tovi-svg draws, in this process.

#include "Fuzz.h"

#include "vectoradaptor/Drawing.h"

namespace
{
constexpr double side = 64;

Surface Draw(std::string_view input, DrawingSize within)
{
    GInputStream* stream = g_memory_input_stream_new_from_data(
        input.data(), static_cast<gssize>(input.size()), nullptr);
    Surface picture = DrawSvg(stream, within);
    g_object_unref(stream);
    return picture;
}
} // namespace

void Try(std::string_view input)
{
    static_cast<void>(Draw(input, {}));
    const Surface picture = Draw(input, {side, side});
    if (!picture) return;
    Require(cairo_image_surface_get_data(picture.get()) != nullptr, "a picture has pixels");
    Require(cairo_image_surface_get_width(picture.get()) <= side &&
                cairo_image_surface_get_height(picture.get()) <= side,
            "it fits");
}
