#pragma once

#include <librsvg/rsvg.h>

#include <memory>

template <class T, void (*release)(T*)>
struct Release
{
    void operator()(T* object) const { release(object); }
};
using Surface = std::unique_ptr<cairo_surface_t, Release<cairo_surface_t, cairo_surface_destroy>>;

struct DrawingSize
{
    double width = 0;
    double height = 0;

    bool IsEmpty() const { return !(width > 0 && height > 0); }
};

/// The picture of the SVG file that \p input holds, as large as it fits into \p within pixels but
/// never enlarged (empty: in its own size), on white. Null when it can't be drawn. Nothing outside
/// the file is ever fetched: without a base no link but those with the data in them is followed.
Surface DrawSvg(GInputStream* input, DrawingSize within);
