#include "vectoradaptor/Drawing.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double mostPixels = 40e6;
/// No picture of cairo's is longer.
constexpr double longestSide = 32767;
constexpr double dotsPerInch = 96;

void Unref(RsvgHandle* drawing)
{
    g_object_unref(drawing);
}

using Context = std::unique_ptr<cairo_t, Release<cairo_t, cairo_destroy>>;
using Drawing = std::unique_ptr<RsvgHandle, Release<RsvgHandle, Unref>>;

/// The size that the drawing says it has; without one that of its view box, else of what is drawn.
DrawingSize SizeOf(RsvgHandle* drawing)
{
    DrawingSize size;
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

DrawingSize Fitted(DrawingSize size, DrawingSize within)
{
    double scale = std::min(1.0, std::sqrt(mostPixels / size.width / size.height));
    if (!within.IsEmpty()) {
        scale = std::min({scale, within.width / size.width, within.height / size.height});
    }
    return {std::max(1.0, std::round(size.width * scale)),
            std::max(1.0, std::round(size.height * scale))};
}

Surface Draw(RsvgHandle* drawing, DrawingSize within)
{
    const DrawingSize own = SizeOf(drawing);
    if (own.IsEmpty() || !std::isfinite(own.width * own.height)) return {};
    const DrawingSize size = Fitted(own, within);
    if (std::max(size.width, size.height) > longestSide) return {};
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

} // namespace

Surface DrawSvg(GInputStream* input, DrawingSize within)
{
    const Drawing drawing(rsvg_handle_new_from_stream_sync(
        input, nullptr, RSVG_HANDLE_FLAG_UNLIMITED, nullptr, nullptr));
    if (!drawing) return {};
    rsvg_handle_set_dpi(drawing.get(), dotsPerInch);
    return Draw(drawing.get(), within);
}
