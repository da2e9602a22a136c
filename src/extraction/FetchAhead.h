#pragma once

#include "photos/ToviPhoto.h"

#include <vector>

/// Has the processor fetch the items of the photographs behind \p photos[at], of which any may be
/// null. A walk over the items of many photographs waits for memory most of its time: each has its
/// own piece of it, far from the one before.
inline void FetchAhead(const std::vector<ToviPhoto*>& photos, std::size_t at)
{
    constexpr std::size_t line = 64;
    constexpr std::size_t itemsDistance = 8;
    constexpr std::size_t photoDistance = 2 * itemsDistance;
    if (at + photoDistance >= photos.size()) return;
    if (const ToviPhoto* photo = photos[at + photoDistance]) {
        const char* const bytes = reinterpret_cast<const char*>(photo);
        for (std::size_t i = 0; i < sizeof *photo && i < 4 * line; i += line) {
            __builtin_prefetch(bytes + i);
        }
    }
    if (const ToviPhoto* photo = photos[at + itemsDistance]) {
        const ToviItemArray& items = photo->GetItems();
        if (items.IsEmpty()) return;
        const char* const bytes = reinterpret_cast<const char*>(&*items.begin());
        const std::size_t size = sizeof(ToviItem) * static_cast<std::size_t>(items.GetSize());
        for (std::size_t i = 0; i < size; i += line) __builtin_prefetch(bytes + i);
    }
}
