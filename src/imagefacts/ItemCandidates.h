#pragma once

#include "items/ToviItemShowSettings.h"
#include "platform/text/Text.h"

class ToviItemDef;

/// The items that the information lists of a delivery may show: those of its definitions, then the
/// facts about the file, then those of Exif.

/// The items as they are shown at first.
ToviItemShowSettings DefaultItems(const ToviItemDef& itemDef);

/// The items with those hidden whose title stands in \p hidden, whatever its letter case.
ToviItemShowSettings ItemsWithout(const ToviItemDef& itemDef, const CStringArray& hidden);
