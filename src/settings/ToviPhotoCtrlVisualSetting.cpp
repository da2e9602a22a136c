#include "settings/ToviPhotoCtrlVisualSetting.h"

#include "platform/HostServices.h"
#include "settings/StoredValues.h"

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

/// Calls \p visit with each entry that is stored as a number, and its value, until it returns
/// false.
template <class Values, class Visit>
bool ForEachNumber(Values& values, const Visit& visit)
{
    using Setting = ToviPhotoCtrlVisualSetting;
    return visit(Setting::TextArrangeEntry_, values.imageTextArrange) &&
           visit(Setting::TreeTypeEntry_, values.treeType) &&
           visit(Setting::DivideTypeEntry_, values.divType) &&
           visit(Setting::TitleShowTypeEntry_, values.titleShowType) &&
           visit(Setting::DoEditCheck_, values.doEditCheck) &&
           visit(Setting::VisibleDetail_, values.visibleDetail) &&
           visit(Setting::VisibleProperty_, values.visibleProperty) &&
           visit(Setting::VisibleComment_, values.visibleComment) &&
           visit(Setting::VisibleControlValue_, values.visibleControlValue);
}
} // namespace

ToviPhotoCtrlVisualSetting&
ToviPhotoCtrlVisualSetting::operator=(const ToviPhotoCtrlVisualSetting& other)
{
    if (this != &other) values = other.values;
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
        return true;
    });
    values.editCheckTypes = profile->GetProfileString(VisualSettingSection_, EditCheckTypes_, "");
    if (values.editCheckTypes.empty()) values.editCheckTypes = CString("1");
    return true;
}

bool ToviPhotoCtrlVisualSetting::Save() const
{
    ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return false;
    const auto write = [profile](const char* entry, int value) {
        return WriteStored(*profile, VisualSettingSection_, entry, value);
    };
    return ForEachNumber(values, write) &&
           profile->WriteProfileString(VisualSettingSection_, EditCheckTypes_,
                                       values.editCheckTypes);
}
