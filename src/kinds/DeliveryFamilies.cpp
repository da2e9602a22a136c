#include "kinds/DeliveryFamilies.h"

#include <algorithm>

std::optional<PhotoXMLType> FamilyWithKey(std::string_view key)
{
    const auto* found =
        std::find_if(deliveryFamilies.begin(), deliveryFamilies.end(),
                     [key](const DeliveryFamily& family) { return family.key == key; });
    if (found == deliveryFamilies.end()) return std::nullopt;
    return static_cast<PhotoXMLType>(found - deliveryFamilies.begin());
}

CString FamilyKeys(bool described)
{
    CString keys = familyIsGuessed;
    if (described) keys += "（DTDなどから判断）";
    for (const DeliveryFamily& family : deliveryFamilies) {
        keys += CString("、") + family.key;
        const bool isClear = EqualNoCase(family.key, family.shortName);
        if (described && !isClear) keys += CString("（") + family.shortName + "）";
    }
    return keys;
}
