#include "review/ToviLabelManager.h"

#include "platform/host/HostServices.h"

#include <algorithm>

namespace
{
constexpr const char* labelSection = "Label";
constexpr const char* undefined = "_未定義_";

struct DefaultLabel
{
    unsigned long color;
    const char* name;
};

constexpr DefaultLabel defaultLabels[labelCount] = {{0x0000FF, "OK"},       {0xFF0000, "追記"},
                                                    {0x00FFFF, "誤記"},     {0x00FF00, "不鮮明"},
                                                    {0xFF00FF, "コメント"}, {0xFFFF00, "印刷"}};

CString EntryOf(unsigned int slot)
{
    return "Label" + std::to_string(slot + 1);
}
} // namespace

ToviLabelAttribute::ToviLabelAttribute(unsigned long labelColor, const char* labelName)
    : name(labelName), color(labelColor)
{}

ToviLabelManager::ToviLabelManager()
{
    Initialize();
}

void ToviLabelManager::Initialize()
{
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        attributes[slot] = {defaultLabels[slot].color, defaultLabels[slot].name};
    }
}

ToviLabelManager::ToviLabelManager(const ToviLabelAttribute* source)
{
    SetLabelAttribute(source);
}

ToviLabelManager& ToviLabelManager::operator=(const ToviLabelManager& other)
{
    attributes = other.attributes;
    stored = other.stored;
    return *this;
}

ToviLabelManager::~ToviLabelManager()
{
    if (loaded) ToviLabelManager::Save(nullptr);
}

void ToviLabelManager::SetLabelAttribute(const ToviLabelAttribute* source)
{
    std::copy_n(source, labelCount, attributes.begin());
}

bool ToviLabelManager::Save(const char*) const
{
    return stored.Write(labelSection, Entries());
}

void ToviLabelManager::Load(const char*)
{
    loaded = true;
    const ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        const CString name = profile->GetProfileString(labelSection, EntryOf(slot), undefined);
        if (name != undefined && !name.empty()) attributes[slot].SetName(name.c_str());
    }
    stored.Note(Entries());
}

StoredSection::Entries ToviLabelManager::Entries() const
{
    StoredSection::Entries entries;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        entries.push_back({EntryOf(slot), attributes[slot].GetName()});
    }
    return entries;
}
