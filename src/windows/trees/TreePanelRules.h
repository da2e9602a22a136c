#pragma once

#include "delivery/ToviData.h"

/// What the folder tree does about an update of the document.
enum class FolderTreeReaction
{
    None,
    /// Takes all items away.
    Clear,
    /// Takes them away and makes them anew from the document.
    Rebuild
};

/// The tree type of a folder tree that has shown none yet.
inline constexpr int noTreeType = 3;

/// \p shownType is the tree type that was last built, or noTreeType; \p type that of the setting.
FolderTreeReaction FolderTreeReactionTo(ToviData::UpdateHint hint, int shownType, int type);

/// What the label tree does about an update, in the order of the fields.
struct LabelTreeReaction
{
    bool initialize = false;
    /// Shows the names and counts anew.
    bool recount = false;
    bool reselect = false;

    bool operator==(const LabelTreeReaction&) const = default;
};

/// \p isVisible tells whether the label tree is in view.
LabelTreeReaction LabelTreeReactionTo(ToviData::UpdateHint hint, bool isVisible);

/// The pictures of a folder tree: their number, and the index of the selected root's. Both the
/// plain ones, from index 0, and the selected ones stand by depth.
struct FolderTreeImages
{
    int number;
    int selectedRoot;

    bool operator==(const FolderTreeImages&) const = default;
};

/// \p type is a tree type; a number that is none counts as TreePlace.
FolderTreeImages FolderTreeImagesOf(int type);

/// A label in the label tree: its name, with " <12>" behind it unless \p count is 0.
CString LabelTreeText(const CString& name, int count);
