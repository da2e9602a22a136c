#include "windows/panel/PanelUpdates.h"

#include "items/ToviPhotoCtrlVisualSetting.h"
#include <vector>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using Steps = std::vector<PanelStep>;
using enum PanelStep;

/// The reactions to one update in the paged modes, in the thumbnail list and in the management
/// list.
struct Reaction
{
    ToviData::UpdateHint hint;
    Steps paged;
    Steps thumbnails;
    Steps list;
};

const std::vector<Reaction>& Reactions()
{
    static const std::vector<Reaction> reactions = {
        {ToviData::HintInitialize,
         {CopySettings, Initialize},
         {CopySettings, Initialize},
         {CopySettings, Initialize}},
        {ToviData::HintSelectionChanged,
         {ResetPages, GoToSelected, ChangePage, RebuildStrips},
         {RefillList, SelectListItem, RebuildStrips},
         {RefillList, SelectListItem}},
        {ToviData::HintPageReset,
         {ResetPages, ChangePage, RebuildStrips},
         {RefillList, RebuildStrips},
         {RefillList}},
        {ToviData::HintCurrentArrayChanged,
         {ResetPages, Initialize},
         {ResetPages, Initialize},
         {ResetPages, Initialize}},
        {ToviData::HintPhotoInfoChanged, {ShowAll}, {ShowAll}, {ShowAll}},
        {ToviData::HintLabelsChanged, {ShowAll}, {ShowAll}, {ShowAll}},
        {ToviData::HintSettingsChanged, {ApplySettings}, {ApplySettings}, {ApplySettings}},
        {ToviData::HintPhotoSelected, {ClearAnchors}, {}, {}}};
    return reactions;
}
} // namespace

std::span<const PanelStep> StepsOf(ToviData::UpdateHint hint, Setting::DivideType mode)
{
    for (const Reaction& reaction : Reactions()) {
        if (reaction.hint != hint) continue;
        if (mode == Setting::DivideThumbnails) return reaction.thumbnails;
        return mode == Setting::DivideList ? reaction.list : reaction.paged;
    }
    return {};
}

bool TellsOfSelection(ToviData::UpdateHint hint)
{
    return hint == ToviData::HintPhotoSelected || hint == ToviData::HintSelectionChanged ||
           hint == ToviData::HintCurrentArrayChanged;
}

SettingChange ChangeOf(const Setting& before, const Setting& now, bool force)
{
    const Setting::DivideType mode = now.GetDivType();
    const bool isPaged = now.GetCountOfSet() > 0;
    const bool arrangeChanged = before.GetImageTextArrange() != now.GetImageTextArrange();
    const bool commentChanged = before.GetVisibleComment() != now.GetVisibleComment();
    const bool detailChanged = before.GetVisibleDetail() != now.GetVisibleDetail();
    if (force || before.GetDivType() != mode) return {.rebuild = true};
    // The lists have no information beside a photograph.
    if (!isPaged && arrangeChanged) return {};
    const bool onlyPartsChanged = arrangeChanged || commentChanged || detailChanged;
    const bool titleChanged = before.GetTitleShowType() != now.GetTitleShowType();
    const bool listChanged = mode == Setting::DivideList && commentChanged;
    if (!onlyPartsChanged || titleChanged || listChanged || mode == Setting::DivideThumbnails ||
        before.IsChangeEditCheckTerm(now))
        return {.rebuild = true};
    return {.toggleStrips = isPaged && commentChanged,
            .refillCells = isPaged && before.GetItemShowSettings() != now.GetItemShowSettings(),
            .layOutCells = isPaged && arrangeChanged};
}
