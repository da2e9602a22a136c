#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

/// The reference drawings of one photograph, or the sheets of one of them, of which one is on show.
struct DrawingPages
{
    /// Counted from 1; 0 when there is no photograph.
    int index = 0;
    int count = 0;

    bool operator==(const DrawingPages&) const = default;

    bool HasNext() const { return index > 0 && index < count; }
    bool HasPrevious() const { return index > 1; }
    /// "2/3 枚目を表示"; empty where there is only one.
    TOVI_EXPORT CString Text() const;
    /// The pages after a step to the next (1) or the previous one (-1), the same at either end.
    TOVI_EXPORT DrawingPages Stepped(int step) const;
};

/// The sheets of one drawing's file: "2/3 ページ"; empty where there is only one.
TOVI_EXPORT CString SheetText(const DrawingPages& sheets);

/// What stands in the place of the drawing.
enum class DrawingView
{
    /// There is no drawing, or its file is missing.
    Blank,
    /// It is being read.
    Waiting,
    Picture,
    /// An SVG drawing, as a page.
    Page,
    /// The sentence that it can't be shown here.
    Notice
};

enum class DrawingLoad
{
    Running,
    Failed,
    Done
};

/// \p path is the drawing's file, empty when there is none.
TOVI_EXPORT DrawingView DrawingViewOf(const CString& path, DrawingLoad load);
