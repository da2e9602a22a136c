#pragma once

#include "photos/ToviPhoto.h"

/// The commands of the menu of a photograph by their numbers.
namespace LabelMenuId
{
inline constexpr unsigned int zoom = 32770;
/// That of the first label; those of the others follow.
inline constexpr unsigned int remove = 32772;
/// Likewise.
inline constexpr unsigned int paste = 32778;
inline constexpr unsigned int removeAll = 32784;
} // namespace LabelMenuId

/// Which commands are enabled.
struct LabelMenuItems
{
    std::array<bool, labelCount> paste;
    std::array<bool, labelCount> remove;
    bool removeAll = false;

    bool operator==(const LabelMenuItems&) const = default;
    /// Enables what \p other does, too.
    LabelMenuItems& operator|=(const LabelMenuItems& other);
};

/// Those for \p photo: what is pasted can be removed, all else pasted.
TOVI_EXPORT LabelMenuItems EnabledLabelItems(const ToviPhoto& photo);
