#include "windows/cell/CellLayout.h"

#include <algorithm>

CellLayout LayOutCell(int width, int height, ToviPhotoCtrlVisualSetting::ImageTextArrange arrange,
                      bool hasStrip)
{
    CellLayout layout;
    const int plateTop = height - CellLayout::plateHeight;
    const int above = std::max(0, plateTop);
    const int strip = hasStrip ? CellLayout::stripHeight : 0;
    int imageWidth = 0;
    if (arrange == ToviPhotoCtrlVisualSetting::TextHidden) {
        imageWidth = width;
    } else if (arrange == ToviPhotoCtrlVisualSetting::TextBeside) {
        imageWidth = CellLayout::imagePaneShare * width / 60;
        layout.information = {imageWidth, 0, width - imageWidth, above};
    }
    const int imageHeight = imageWidth > 0 ? std::max(0, above - strip) : 0;
    layout.image = {0, strip, imageWidth, imageHeight};
    layout.plate = {0, plateTop, width, CellLayout::plateHeight};
    return layout;
}

PlateLayout LayOutPlate(int width, int height, int markSide)
{
    constexpr int markTop = 3;
    constexpr int frame = 1;
    PlateLayout layout;
    constexpr int count = labelCount;
    constexpr int smallestTitle = 80;
    constexpr int smallestButton = 24;
    const int marksLeft = width - 2 * markSide - frame;
    // The buttons of a narrow plate move together, so that none is cut off and a title has room.
    const int fitting = marksLeft / count;
    const int besideTitle = (marksLeft - smallestTitle) / count;
    const int buttonWidth = std::clamp(std::max(besideTitle, std::min(smallestButton, fitting)), 0,
                                       static_cast<int>(height * 1.8));
    const int buttonsLeft = marksLeft - count * buttonWidth;
    layout.photoMark = {marksLeft, markTop, markSide, markSide};
    layout.checkMark = {marksLeft + markSide, markTop, markSide, markSide};
    int left = buttonsLeft;
    for (CellPlace& button : layout.buttons) {
        button = {left, frame, buttonWidth, height - 2 * frame};
        left += buttonWidth;
    }
    layout.titleWidth = std::max(0, buttonsLeft);
    return layout;
}
