#include "windows/detail/PhotoCorrection.h"

#include "platform/pictures/LumImage.h"
#include "platform/pictures/ToneCurve.h"

namespace
{
constexpr int brightnessStep = 200;
constexpr int wholeTurn = 360;
constexpr unsigned long white = 0xFFFFFF;
} // namespace

void PhotoCorrection::BeginPicture()
{
    rotation = 0;
    changed = brightness != 0;
}

void PhotoCorrection::BeginNone()
{
    rotation = 0;
    changed = false;
}

void PhotoCorrection::Turn(int angle)
{
    rotation = (rotation + angle) % wholeTurn;
    changed = true;
}

bool PhotoCorrection::SetBrightness(int position)
{
    if (position * brightnessStep == brightness) return false;
    brightness = position * brightnessStep;
    changed = true;
    return true;
}

LumImage PhotoCorrection::Apply(const LumImage& loaded) const
{
    LumImage worked = loaded;
    if (rotation != 0) worked.Rotate(rotation, white, false, true);
    for (const int amount : BrightnessSteps(brightness)) worked.SetContrast(amount);
    return worked;
}

ImageTools ToolsFor(bool showsImage, bool showsDrawing, bool isChanged)
{
    return {.correct = showsImage,
            .reset = showsImage && isChanged,
            .save = showsImage || showsDrawing};
}
