// What tovi-svg draws, in this process.

#include "Fuzz.h"

#include "vectoradaptor/Drawing.h"

namespace
{
constexpr double side = 64;
}

void Try(std::string_view input)
{
    GInputStream* stream = g_memory_input_stream_new_from_data(
        input.data(), static_cast<gssize>(input.size()), nullptr);
    const Surface picture = DrawSvg(stream, {side, side});
    g_object_unref(stream);
    if (!picture) return;
    Require(cairo_image_surface_get_data(picture.get()) != nullptr, "a picture has pixels");
    Require(cairo_image_surface_get_width(picture.get()) <= side &&
                cairo_image_surface_get_height(picture.get()) <= side,
            "it fits");
}
