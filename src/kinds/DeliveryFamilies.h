#pragma once

#include "kinds/PhotoXMLType.h"
#include "platform/text/Text.h"

#include <array>
#include <optional>

/// The names of a delivery family.
struct DeliveryFamily
{
    /// What it is called on a command line.
    const char* key;
    /// As users call it.
    const char* shortName;
    const char* name;
};

/// All families, in the order of PhotoXMLType.
inline constexpr std::array<DeliveryFamily, 4> deliveryFamilies = {{
    {"mlit", "国交省", "国土交通省"},
    {"kowan", "港湾", "港湾"},
    {"maff", "農水省", "農林水産省"},
    {"nexco", "NEXCO", "NEXCO"},
}};

/// The word for no family on a command line: it is found out.
inline constexpr const char* familyIsGuessed = "auto";

/// The family that is called \p key on a command line; nothing for any other word.
TOVI_EXPORT std::optional<PhotoXMLType> FamilyWithKey(std::string_view key);

/// All words that a command line takes for a family, each with what it means where \p described,
/// as: auto、mlit、kowan.
TOVI_EXPORT CString FamilyKeys(bool described);
