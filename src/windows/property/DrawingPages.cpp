#include "windows/property/DrawingPages.h"

#include "imagefacts/ToviExifInfo.h"

CString DrawingPages::Text() const
{
    return HasNext() || HasPrevious() ? Format("%d/%d 枚目を表示", index, count) : CString();
}

CString SheetText(const DrawingPages& sheets)
{
    return sheets.count > 1 ? Format("%d/%d ページ", sheets.index, sheets.count) : CString();
}

DrawingPages DrawingPages::Stepped(int step) const
{
    const bool isPossible = step > 0 ? HasNext() : HasPrevious();
    return {isPossible ? index + step : index, count};
}

DrawingView DrawingViewOf(const CString& path, DrawingLoad load)
{
    if (path.empty()) return DrawingView::Blank;
    if (ToviExifInfo::IsSvg(path)) return DrawingView::Page;
    if (load == DrawingLoad::Running) return DrawingView::Waiting;
    return load == DrawingLoad::Done ? DrawingView::Picture : DrawingView::Notice;
}
