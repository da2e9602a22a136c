#include "reports/CheckStatusCells.h"

#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "photos/ToviPhoto.h"
#include "review/ToviLabelManager.h"

namespace
{
constexpr unsigned int ngSlots[] = {LabelNg1, LabelNg2, LabelNg3};
constexpr int mostUnits = 32767;
constexpr char32_t ellipsis = U'…';

int NameItem(const ToviData& document, const ToviItemDef& def)
{
    using Setting = ToviPhotoCtrlVisualSetting;
    const Setting::TitleShowType type = document.GetVisualSetting().GetTitleShowType();
    const bool known = type >= Setting::TitleFileName && type <= Setting::TitlePhotoTitle;
    return known ? def.GetIndexFromEnum(type) : -1;
}

CString ValueOf(const ToviPhoto& photo, int item)
{
    return item < 0 ? "" : photo.GetTitle(item);
}

CString ResultOf(const ToviPhoto& photo)
{
    if (photo.IsOK()) return "ＯＫ";
    if (photo.HasNGLabel()) return "ＮＧ";
    return photo.IsNotCheck() ? "未検査" : "";
}

void AppendFinding(CString& findings, const CString& finding)
{
    if (!findings.empty()) findings += "、";
    findings += finding;
}

bool IsControl(char32_t codePoint)
{
    return (codePoint < 0x20 && codePoint != U'\n') || codePoint == 0xFFFE || codePoint == 0xFFFF;
}

int UnitsOf(char32_t codePoint)
{
    return codePoint > 0xFFFF ? 2 : 1;
}
} // namespace

CheckStatusCells::CheckStatusCells(ToviData& document, const ToviLabelManager& labels)
{
    const ToviItemDef& def = *document.GetItemDef();
    serialItem = def.GetIndexFromTitle("シリアル番号");
    nameItem = NameItem(document, def);
    placeItem = def.GetIndexFromTitle("撮影箇所");
    for (std::size_t i = 0; i < ngNames.size(); ++i) {
        ngNames[i] = labels.GetLabelAttribute(ngSlots[i]).GetName();
    }
}

std::vector<CString> CheckStatusCells::Of(const ToviPhoto& photo) const
{
    std::vector<CString> cells = {ValueOf(photo, serialItem), ValueOf(photo, nameItem),
                                  ValueOf(photo, placeItem), ResultOf(photo), FindingsOf(photo)};
    for (CString& cell : cells) cell = CellText(cell);
    return cells;
}

CString CheckStatusCells::FindingsOf(const ToviPhoto& photo) const
{
    CString findings;
    for (std::size_t i = 0; i < ngNames.size(); ++i) {
        if (photo.IsLabelPasted(ngSlots[i])) AppendFinding(findings, ngNames[i]);
    }
    if (!photo.GetComment().empty()) AppendFinding(findings, photo.GetComment());
    return findings;
}

CString CellText(std::string_view text)
{
    CString cell;
    // The end of what stands when the ellipsis has to follow.
    std::size_t kept = 0;
    int units = 0;
    while (!text.empty()) {
        char32_t codePoint = TakeCodePoint(text);
        if (codePoint == U'\r') {
            if (text.starts_with('\n')) continue;
            codePoint = U'\n';
        }
        units += UnitsOf(codePoint);
        if (units > mostUnits) {
            cell.resize(kept);
            AppendUtf8(cell, ellipsis);
            break;
        }
        AppendUtf8(cell, IsControl(codePoint) ? U' ' : codePoint);
        if (units < mostUnits) kept = cell.size();
    }
    return cell;
}
