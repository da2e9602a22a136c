#pragma once

#include "platform/text/Export.h"

#include <array>
#include <vector>

/// What becomes of each level of a picture's colours.
using ToneCurve = std::array<unsigned char, 256>;

/// Makes a picture lighter (\p amount above 0) or darker by \p amount, -1000 to 1000. Black and
/// white stay what they are, and equal amounts there and back lead about to where they began.
TOVI_EXPORT ToneCurve ContrastCurve(int amount);

/// The amounts that \p brightness, the value of a correction window's slider, is applied in: whole
/// steps of 1000 either way. What is left over lightens but never darkens.
TOVI_EXPORT std::vector<int> BrightnessSteps(int brightness);

/// All of these amounts together.
TOVI_EXPORT ToneCurve BrightnessCurve(int brightness);
