#pragma once

#include "platform/pictures/LumImage.h"

/// A place on a canvas, in pixels from its upper left corner.
struct LumRect
{
    int left;
    int top;
    int width;
    int height;
};

/// A picture to be drawn, without a window: colours are 0x00BBGGRR.
class TOVI_EXPORT LumCanvas
{
public:
    /// A canvas of \p width by \p height pixels, both at least 1, filled with \p background.
    /// IsValid() is false when there is no memory for it.
    LumCanvas(int width, int height, unsigned long background);
    ~LumCanvas();
    LumCanvas(const LumCanvas&) = delete;
    LumCanvas& operator=(const LumCanvas&) = delete;

    bool IsValid() const;
    void FillRect(const LumRect& place, unsigned long color);
    /// Draws \p image as large as it fits into \p place, in its middle, never enlarged.
    void DrawImage(const LumRect& place, const LumImage& image);
    /// Draws \p text in the middle of \p place in the system's Japanese font, \p pixels high. What
    /// doesn't fit on \p lines lines is cut and ends in "…".
    void DrawText(const LumRect& place, const CString& text, int pixels, int lines,
                  unsigned long color);
    /// The finished picture.
    LumImage GetImage() const;

private:
    struct Painting;
    std::unique_ptr<Painting> painting;
};
