#pragma once

#include "delivery/ToviData.h"
#include "items/ToviPhotoCtrlVisualSetting.h"

#include <span>

/// What the multi-photo panel does about an update of the document.
enum class PanelStep
{
    /// Takes the document's settings over, without a new layout.
    CopySettings,
    /// Takes them over and lays out anew what they change.
    ApplySettings,
    /// Lays out anew, at the selected photograph.
    Initialize,
    /// Back to page 1 of the photographs that there are now.
    ResetPages,
    /// To the page of the selected photograph, if one is selected.
    GoToSelected,
    /// Shows the page.
    ChangePage,
    RefillList,
    /// Selects the photograph that the list shows as selected.
    SelectListItem,
    RebuildStrips,
    /// Shows the labels and the comment of every photograph anew.
    ShowAll,
    ClearAnchors
};

/// The steps after \p hint in the display mode \p mode, in order; none for what doesn't concern the
/// panel.
TOVI_EXPORT std::span<const PanelStep> StepsOf(ToviData::UpdateHint hint,
                                               ToviPhotoCtrlVisualSetting::DivideType mode);

/// True when after \p hint another photograph may be selected, or none.
TOVI_EXPORT bool TellsOfSelection(ToviData::UpdateHint hint);

/// What the panel has to do for settings that take the place of others.
struct SettingChange
{
    /// All is to be built anew; nothing below counts.
    bool rebuild = false;
    /// Comment strips are to appear or to go.
    bool toggleStrips = false;
    /// The information lists show other items.
    bool refillCells = false;
    /// The information lists appear or go.
    bool layOutCells = false;

    bool operator==(const SettingChange&) const = default;
};

/// What to do when \p now takes the place of \p before; \p force builds all anew.
TOVI_EXPORT SettingChange ChangeOf(const ToviPhotoCtrlVisualSetting& before,
                                   const ToviPhotoCtrlVisualSetting& now, bool force);
