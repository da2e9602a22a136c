#include "windows/cell/ItemColours.h"

namespace
{
std::optional<unsigned long> ColourOf(Grade grade)
{
    switch (grade) {
    case GradeRequired:
        return 0x0000FF;
    case GradeConditional:
        return 0xFF0000;
    case GradeOptional:
        return 0x000000;
    default:
        return {};
    }
}

std::optional<unsigned long> ColourOf(InfoType type)
{
    switch (type) {
    case InfoFile:
        return 0x008000;
    case InfoExif:
        return 0x2D52A0;
    default:
        return {};
    }
}
} // namespace

void ItemColours::AddDefinitions(const ToviItemDef& definitions)
{
    for (int index = 0; index < definitions.GetCount(); ++index) {
        const Definition& definition = definitions[index];
        const auto colour = ColourOf(definition.grade);
        if (colour) colours.try_emplace(definition.title, *colour);
    }
}

void ItemColours::AddShowSettings(const ToviItemShowSettings& settings)
{
    for (const ToviItemShowSetting& setting : settings) {
        const auto colour = ColourOf(setting.infoType);
        if (colour) colours.try_emplace(setting.title, *colour);
    }
}

std::optional<unsigned long> ItemColours::Find(const CString& title) const
{
    const auto found = colours.find(title);
    if (found == colours.end()) return {};
    return found->second;
}
