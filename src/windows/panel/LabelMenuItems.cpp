#include "windows/panel/LabelMenuItems.h"

LabelMenuItems EnabledLabelItems(const ToviPhoto& photo)
{
    LabelMenuItems items;
    for (unsigned int label = 0; label < labelCount; ++label) {
        const bool pasted = photo.IsLabelPasted(label);
        items.paste[label] = !pasted;
        items.remove[label] = pasted;
        items.removeAll |= pasted;
    }
    return items;
}

LabelMenuItems& LabelMenuItems::operator|=(const LabelMenuItems& other)
{
    for (unsigned int label = 0; label < labelCount; ++label) {
        paste[label] |= other.paste[label];
        remove[label] |= other.remove[label];
    }
    removeAll |= other.removeAll;
    return *this;
}
