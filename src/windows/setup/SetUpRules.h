#pragma once

#include "extraction/ToviSortCondition.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <array>
#include <optional>

/// What the settings dialog (設定) decides.

/// The longest name of a label, in bytes of code page 932.
inline constexpr int longestLabelName = 32;
using LabelNames = std::array<CString, labelCount>;
/// The first slot whose name is longer than that; nothing when none is.
TOVI_EXPORT std::optional<unsigned int> FirstLongName(const LabelNames& names);

/// The choices that stand for stored values, of which any number can be there.
TOVI_EXPORT ToviPhotoCtrlVisualSetting::DivideType ModeChoice(int stored);
TOVI_EXPORT ToviPhotoCtrlVisualSetting::TitleShowType TitleChoice(int stored);

/// An information list can stand beside the photographs in this display mode.
TOVI_EXPORT bool HasInfoList(ToviPhotoCtrlVisualSetting::DivideType mode);

/// The items that photographs can be sorted by.
inline constexpr const char* sortKeys[] = {"撮影年月日", "シリアル番号", "写真タイトル"};

/// How the user wants the photographs sorted.
struct SortChoice
{
    bool sorts = false;
    /// One of sortKeys; empty when none is chosen.
    CString key;
    bool descending = false;

    bool operator==(const SortChoice&) const = default;
};
TOVI_EXPORT SortChoice SortChoiceOf(const ToviSortCondition& condition);
/// \p condition as the user wants it now. Without sorting it has no key; without a chosen key it
/// keeps its own.
TOVI_EXPORT ToviSortCondition Sorted(ToviSortCondition condition, const SortChoice& choice);
