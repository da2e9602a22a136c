#include "windows/cell/ItemColours.h"

std::optional<unsigned long> ItemColours::Of(Grade grade)
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

std::optional<unsigned long> ItemColours::Of(InfoType type)
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

void ItemColours::AddDefinitions(const ToviItemDef& definitions)
{
    for (int index = 0; index < definitions.GetCount(); ++index) {
        const Definition& definition = definitions[index];
        const auto colour = Of(definition.grade);
        if (colour) colours.try_emplace(definition.title, *colour);
    }
}

void ItemColours::AddShowSettings(const ToviItemShowSettings& settings)
{
    for (const ToviItemShowSetting& setting : settings) {
        const auto colour = Of(setting.infoType);
        if (colour) colours.try_emplace(setting.title, *colour);
    }
}

std::optional<unsigned long> ItemColours::Find(const CString& title) const
{
    const auto found = colours.find(title);
    if (found == colours.end()) return {};
    return found->second;
}
