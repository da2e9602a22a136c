#include "reports/ContactSheet.h"

#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "platform/host/WorkAhead.h"

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

/// Enough to keep all cores decoding while a row is encoded.
constexpr int thumbsAhead = 64;

void DrawPhoto(LumCanvas& canvas, const LumRect& place, const LumImage& thumb)
{
    if (thumb.IsValid()) {
        canvas.DrawImage(place, thumb);
    } else {
        canvas.FillRect(place, palePlate);
        canvas.DrawText(place, "表示できません", noticePixels, 1, ink);
    }
}

/// As it will be drawn; invalid when it can't be decoded.
LumImage MakeThumb(const ToviPhoto& photo)
{
    LumImage thumb;
    thumb.LoadThumb(photo.FindReadablePath().c_str());
    thumb.FitInto(thumbWidth, thumbHeight);
    return thumb;
}

CString CaptionOf(const ToviPhoto& photo, const ToviItemDef& def)
{
    const CString title =
        photo.GetTitle(def.GetIndexFromEnum(ToviPhotoCtrlVisualSetting::TitlePhotoTitle));
    if (!title.empty()) return title;
    return photo.GetTitle(def.GetIndexFromEnum(ToviPhotoCtrlVisualSetting::TitleFileName));
}

/// The sheet as it comes into being, a row of photographs after the other.
class Sheet
{
public:
    Sheet(ToviData& shown, const ContactSheetLayout& places, LumStripWriter& into)
        : document(shown), layout(places), writer(into)
    {}

    bool Begin()
    {
        return AppendBlank(ContactSheetLayout::TopHeight()) &&
               (layout.Count() > 0 || AppendBlank(ContactSheetLayout::RowHeight()));
    }

    /// False when the writer gave up.
    bool Add(int position, const LumImage& thumb)
    {
        if (!row) row.emplace(layout.Width(), layout.RowHeight(), white);
        if (!thumb.IsValid()) ++notShown;
        DrawPhoto(*row, InRow(layout.Thumbnail(position), position), thumb);
        row->DrawText(InRow(layout.Title(position), position),
                      CaptionOf(*document.GetPhoto(position), *document.GetItemDef()), titlePixels,
                      2, ink);
        const bool isLast =
            position + 1 == layout.Count() || (position + 1) % layout.Columns() == 0;
        return !isLast || AppendRow();
    }

    int NotShown() const { return notShown; }

private:
    LumRect InRow(LumRect place, int position) const
    {
        place.top -= layout.TopHeight() + position / layout.Columns() * layout.RowHeight();
        return place;
    }

    bool AppendBlank(int height) { return writer.Append(LumCanvas(layout.Width(), height, white)); }

    bool AppendRow()
    {
        const bool taken = writer.Append(*row);
        row.reset();
        return taken;
    }

    ToviData& document;
    const ContactSheetLayout& layout;
    LumStripWriter& writer;
    std::optional<LumCanvas> row;
    int notShown = 0;
};
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
    return TopHeight() + rows * RowHeight();
}

int ContactSheetLayout::TopHeight()
{
    return gap;
}

int ContactSheetLayout::RowHeight()
{
    return thumbHeight + titleHeight + gap;
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
            TopHeight() + position / columns * RowHeight(), thumbWidth, thumbHeight};
}

LumRect ContactSheetLayout::Title(int position) const
{
    const LumRect above = Thumbnail(position);
    return {above.left, above.top + thumbHeight, thumbWidth, titleHeight};
}

std::optional<int> WriteContactSheet(ToviData& document, const ContactSheetLayout& layout,
                                     LumStripWriter& writer, const std::function<void(int)>& report)
{
    Sheet sheet(document, layout, writer);
    bool going = sheet.Begin();
    const auto make = [&document](int position) { return MakeThumb(*document.GetPhoto(position)); };
    const auto take = [&](int position, const LumImage& thumb) {
        going = sheet.Add(position, thumb);
        report(position);
        return going;
    };
    if (going) WorkAhead<LumImage>(layout.Count(), thumbsAhead, make, take);
    if (!going || !writer.Finish()) return std::nullopt;
    return sheet.NotShown();
}
