#include "items/ToviPhotoCtrlVisualSetting.h"

#include "platform/host/HostServices.h"

namespace
{
struct Division
{
    unsigned long columns;
    unsigned long rows;
};

constexpr Division divisions[] = {{1, 1}, {1, 2}, {1, 3}, {2, 2}, {2, 3}, {0, 0}, {0, 0}};

const Division& DivisionOf(ToviPhotoCtrlVisualSetting::DivideType type)
{
    const bool known = type >= 0 && type <= ToviPhotoCtrlVisualSetting::DivideList;
    return divisions[known ? type : ToviPhotoCtrlVisualSetting::DivideSix];
}

/// Calls \p visit with each entry that is stored as a number, and its value.
template <class Values, class Visit>
void ForEachNumber(Values& values, const Visit& visit)
{
    using Setting = ToviPhotoCtrlVisualSetting;
    visit(Setting::TextArrangeEntry_, values.imageTextArrange);
    visit(Setting::TreeTypeEntry_, values.treeType);
    visit(Setting::DivideTypeEntry_, values.divType);
    visit(Setting::TitleShowTypeEntry_, values.titleShowType);
    visit(Setting::DoEditCheck_, values.doEditCheck);
    visit(Setting::VisibleDetail_, values.visibleDetail);
    visit(Setting::VisibleProperty_, values.visibleProperty);
    visit(Setting::VisibleComment_, values.visibleComment);
    visit(Setting::VisibleControlValue_, values.visibleControlValue);
}
} // namespace

ToviPhotoCtrlVisualSetting&
ToviPhotoCtrlVisualSetting::operator=(const ToviPhotoCtrlVisualSetting& other)
{
    if (this == &other) return *this;
    values = other.values;
    stored = other.stored;
    return *this;
}

ToviPhotoCtrlVisualSetting::~ToviPhotoCtrlVisualSetting()
{
    if (loaded) Save();
}

unsigned long ToviPhotoCtrlVisualSetting::GetRowCount() const
{
    return DivisionOf(values.divType).rows;
}

unsigned long ToviPhotoCtrlVisualSetting::GetColCount() const
{
    return DivisionOf(values.divType).columns;
}

bool ToviPhotoCtrlVisualSetting::IsPreviewStyle() const
{
    return values.divType >= DivideOne && values.divType <= DivideSix;
}

bool ToviPhotoCtrlVisualSetting::IsChangeEditCheckTerm(
    const ToviPhotoCtrlVisualSetting& other) const
{
    if (values.doEditCheck != other.values.doEditCheck) return true;
    return values.doEditCheck && values.editCheckTypes != other.values.editCheckTypes;
}

bool ToviPhotoCtrlVisualSetting::Load()
{
    loaded = true;
    const ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return true;
    ForEachNumber(values, [profile](const char* entry, auto& value) {
        ReadStored(*profile, VisualSettingSection_, entry, value);
    });
    values.editCheckTypes = profile->GetProfileString(VisualSettingSection_, EditCheckTypes_, "");
    if (values.editCheckTypes.empty()) values.editCheckTypes = CString("1");
    stored.Note(Entries());
    return true;
}

bool ToviPhotoCtrlVisualSetting::Save()
{
    return stored.Write(VisualSettingSection_, Entries());
}

StoredSection::Entries ToviPhotoCtrlVisualSetting::Entries() const
{
    StoredSection::Entries entries;
    ForEachNumber(values, [&entries](const char* entry, int value) {
        entries.push_back(StoredNumber(entry, value));
    });
    entries.push_back({EditCheckTypes_, values.editCheckTypes});
    return entries;
}
