#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <optional>

class ToviSortCondition;

/// A column of the management list.
struct ListColumn
{
    enum Kind
    {
        /// The labels, as pictures.
        Labels,
        Comment,
        /// An item of the delivery.
        Item,
        /// What the file says.
        Fact
    };
    Kind kind = Item;
    CString title;
    /// What the photographs are sorted by at a click on the header; empty where they can't be.
    CString sortKey = {};
};

/// The columns that stand in front of those of the settings, each of which the user can hide.
inline constexpr const char* leadingColumns[] = {"付箋", "コメント", "シリアル番号", "ファイル名"};

/// What the user has made of the columns, kept in the profile: the width of a column in pixels of
/// the layout, if one was given to it, and whether a leading one is shown.
namespace ListColumnMemory
{
TOVI_EXPORT std::optional<int> Width(const CString& title);
TOVI_EXPORT void SetWidth(const CString& title, int width);
TOVI_EXPORT bool IsShown(const CString& title);
TOVI_EXPORT void SetShown(const CString& title, bool shown);
} // namespace ListColumnMemory

/// The order that follows \p now at a click on the header of \p key: upwards, downwards, none.
TOVI_EXPORT ToviSortCondition OrderAfterClick(const ToviSortCondition& now, const CString& key);
