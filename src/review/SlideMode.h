#pragma once

#include "platform/text/Export.h"

/// Slide mode (スライドモード) shows photographs to an audience and refuses what would get in the
/// way. It is one flag for the whole program, off at first; the host says when it begins and ends.
TOVI_EXPORT void SetSlideMode(bool on);
TOVI_EXPORT bool IsSlideMode();

/// What slide mode refuses.
enum class SlideModeRefusal
{
    RightClick,
    EditComment,
    SavePhoto
};

/// In slide mode tells the user that \p what can't be done, and returns true; else false.
TOVI_EXPORT bool RefuseInSlideMode(SlideModeRefusal what);
