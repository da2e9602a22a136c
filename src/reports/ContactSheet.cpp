#include "reports/ContactSheet.h"

#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"

#include <algorithm>

namespace
{
constexpr int thumbWidth = 240;
constexpr int thumbHeight = 180;
constexpr int titleHeight = 44;
constexpr int titlePixels = 15;
constexpr int noticePixels = 22;
constexpr int gap = 16;
constexpr int longestSide = 32000;
constexpr long long mostPixels = 150'000'000;

constexpr unsigned long white = 0xFFFFFF;
constexpr unsigned long ink = 0x302820;
constexpr unsigned long palePlate = 0xE6FFE6;

/// False when it can't be decoded.
bool DrawPhoto(LumCanvas& canvas, const LumRect& place, ToviPhoto& photo)
{
    photo.LoadThumb();
    const bool shown = photo.GetImage().IsValid();
    if (shown) {
        canvas.DrawImage(place, photo.GetImage());
    } else {
        canvas.FillRect(place, palePlate);
        canvas.DrawText(place, "表示できません", noticePixels, 1, ink);
    }
    photo.ReleaseImage();
    return shown;
}

CString CaptionOf(const ToviPhoto& photo, const ToviItemDef& def)
{
    const CString title =
        photo.GetTitle(def.GetIndexFromEnum(ToviPhotoCtrlVisualSetting::TitlePhotoTitle));
    if (!title.empty()) return title;
    return photo.GetTitle(def.GetIndexFromEnum(ToviPhotoCtrlVisualSetting::TitleFileName));
}
} // namespace

ContactSheetLayout::ContactSheetLayout(int photoCount, int columnCount)
    : count(photoCount), columns(columnCount)
{}

int ContactSheetLayout::Width() const
{
    return gap + columns * (thumbWidth + gap);
}

int ContactSheetLayout::Height() const
{
    const int rows = std::max(1, (count + columns - 1) / columns);
    return gap + rows * (thumbHeight + titleHeight + gap);
}

bool ContactSheetLayout::Fits() const
{
    const bool sides =
        columns <= longestSide / thumbWidth && count / columns <= longestSide / thumbHeight;
    return sides && Width() <= longestSide && Height() <= longestSide &&
           static_cast<long long>(Width()) * Height() <= mostPixels;
}

LumRect ContactSheetLayout::Thumbnail(int position) const
{
    return {gap + position % columns * (thumbWidth + gap),
            gap + position / columns * (thumbHeight + titleHeight + gap), thumbWidth, thumbHeight};
}

LumRect ContactSheetLayout::Title(int position) const
{
    const LumRect above = Thumbnail(position);
    return {above.left, above.top + thumbHeight, thumbWidth, titleHeight};
}

ContactSheet MakeContactSheet(ToviData& document, int columns,
                              const std::function<void(int)>& report)
{
    const int count = document.GetCurrentPhotoCount();
    const ContactSheetLayout layout(count, columns);
    if (!layout.Fits()) return {};
    LumCanvas canvas(layout.Width(), layout.Height(), white);
    if (!canvas.IsValid()) return {};
    int notShown = 0;
    for (int position = 0; position < count; ++position) {
        ToviPhoto& photo = *document.GetPhoto(position);
        if (!DrawPhoto(canvas, layout.Thumbnail(position), photo)) ++notShown;
        canvas.DrawText(layout.Title(position), CaptionOf(photo, *document.GetItemDef()),
                        titlePixels, 2, ink);
        report(position);
    }
    return {canvas.GetImage(), notShown};
}
