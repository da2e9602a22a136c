#include "hosts/cli/SettingKeys.h"

#include "imagefacts/ImageTypeChoice.h"
#include "imagefacts/ToviControlValueArray.h"
#include "items/ToviItemShowSettings.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/LabelSlots.h"
#include "platform/text/Cp932.h"

#include <algorithm>
#include <charconv>

namespace
{
using Visual = ToviPhotoCtrlVisualSetting;

constexpr std::string_view itemPrefix = "item:";
/// Bytes in code page 932.
constexpr int longestLabelName = 32;

/// The names of the values 0, 1, 2... of a setting, with blanks between them.
CStringArray Names(const CString& values)
{
    CStringArray names;
    std::size_t begin = 0;
    for (std::size_t blank; (blank = values.find(' ', begin)) != CString::npos; begin = blank + 1) {
        names.Add(values.substr(begin, blank - begin));
    }
    names.Add(values.substr(begin));
    return names;
}

template <auto Get>
CString GetNumbered(const UserSettings& settings, const SettingKey& key)
{
    const int value = static_cast<int>((settings.visual.*Get)());
    const CStringArray names = Names(key.values);
    return value >= 0 && value < names.GetSize() ? names[value] : std::to_string(value);
}

template <auto Set, class Value>
bool SetNumbered(UserSettings& settings, const SettingKey& key, const CString& value)
{
    const CStringArray names = Names(key.values);
    const auto found = std::find(names.begin(), names.end(), value);
    if (found == names.end()) return false;
    (settings.visual.*Set)(static_cast<Value>(found - names.begin()));
    return true;
}

template <auto Get, auto Set, class Value>
SettingKey Numbered(const char* name, const char* meaning, const char* values)
{
    return {name, meaning, values, &GetNumbered<Get>, &SetNumbered<Set, Value>};
}

template <auto Get, auto Set>
SettingKey Flag(const char* name, const char* meaning)
{
    return Numbered<Get, Set, bool>(name, meaning, "off on");
}

bool SetTypes(UserSettings& settings, const SettingKey&, const CString& value)
{
    if (!IsEditCheckTypes(value)) return false;
    settings.visual.SetEditCheckTypes(value);
    return true;
}

SettingKey EditCheckTypes()
{
    return {"edit-check-types", "画像加工検知のタイプと順", "0,2,1",
            [](const UserSettings& settings, const SettingKey&) {
                return settings.visual.GetEditCheckTypes();
            },
            &SetTypes};
}

SettingKey Label(unsigned int slot)
{
    return {"label" + std::to_string(slot),
            "付箋の名称",
            "（半角32文字以下）",
            [](const UserSettings& settings, const SettingKey& key) {
                return CString(settings.labels.GetLabelAttribute(key.slot).GetName());
            },
            [](UserSettings& settings, const SettingKey& key, const CString& value) {
                if (value.empty() || Cp932::ByteLength(value) > longestLabelName) return false;
                settings.labels.GetLabelAttribute(key.slot).SetName(value.c_str());
                return true;
            },
            slot};
}

bool SetSort(UserSettings& settings, const SettingKey&, const CString& value)
{
    if (value != "on" && value != "off") return false;
    settings.sort.ExecSort(value == "on");
    return true;
}

bool SetSortOrder(UserSettings& settings, const SettingKey&, const CString& value)
{
    const bool descending = value == "descending";
    if (!descending && value != "ascending") return false;
    if (descending && !settings.sort.IsExecSort()) return false;
    settings.sort.Ascending(!descending);
    return true;
}

bool SetSortKey(UserSettings& settings, const SettingKey&, const CString& value)
{
    if (value.empty()) return false;
    settings.sort.SetKeyItem(value.c_str());
    return true;
}

template <int UserSettings::*field, int smallest, int largest>
SettingKey Mebibytes(const char* name, const char* meaning)
{
    return {name, meaning, Format("%d～%d", smallest, largest),
            [](const UserSettings& settings, const SettingKey&) {
                return std::to_string(settings.*field);
            },
            [](UserSettings& settings, const SettingKey&, const CString& value) {
                int size = 0;
                const char* const end = value.data() + value.size();
                const auto [last, error] = std::from_chars(value.data(), end, size);
                const bool inRange = size >= smallest && size <= largest;
                if (error != std::errc() || last != end || !inRange) return false;
                settings.*field = size;
                return true;
            }};
}

std::vector<SettingKey> MakeKeys()
{
    std::vector<SettingKey> keys = {
        Numbered<&Visual::GetTreeType, &Visual::SetTreeType, Visual::TreeType>("tree", "分類の木",
                                                                               "full place work"),
        Numbered<&Visual::GetDivType, &Visual::SetDivType, Visual::DivideType>(
            "mode", "写真表示数", "1 2 3 4 6 thumbnails list"),
        Numbered<&Visual::GetTitleShowType, &Visual::SetTitleShowType, Visual::TitleShowType>(
            "title", "写真タイトル表示（写真ファイル名、写真ファイル日本語名、写真タイトル）",
            "file japanese title"),
        Numbered<&Visual::GetImageTextArrange, &Visual::SetImageTextArrange,
                 Visual::ImageTextArrange>("info-list", "写真情報リスト表示", "off on"),
        Flag<&Visual::GetVisibleComment, &Visual::SetVisibleComment>("comment", "コメント表示"),
        Flag<&Visual::GetVisibleControlValue, &Visual::SetVisibleControlValue>(
            "control-values", "施工管理値の表表示"),
        Flag<&Visual::GetVisibleDetail, &Visual::SetVisibleDetail>("detail", "詳細パネル"),
        Flag<&Visual::GetVisibleProperty, &Visual::SetVisibleProperty>("property",
                                                                       "詳細パネルの写真情報"),
        Flag<&Visual::GetDoEditCheck, &Visual::SetDoEditCheck>("edit-check", "画像加工検知を行う"),
        EditCheckTypes(),
        {"sort", "写真の並べ替え", "off on",
         [](const UserSettings& settings, const SettingKey&) {
             return CString(settings.sort.IsExecSort() ? "on" : "off");
         },
         &SetSort},
        {"sort-key", "並べ替えの項目", "項目名",
         [](const UserSettings& settings, const SettingKey&) { return settings.sort.GetKeyItem(); },
         &SetSortKey},
        {"sort-order", "並べ替えの向き。descending は sort=on のときだけ", "ascending descending",
         [](const UserSettings& settings, const SettingKey&) {
             return CString(settings.sort.IsAscending() ? "ascending" : "descending");
         },
         &SetSortOrder},
        Mebibytes<&UserSettings::readingLimit, ReadingLimit::smallest, ReadingLimit::largest>(
            "reading-limit", "読み込む PHOTO.XML の大きさの上限（MB）"),
        Mebibytes<&UserSettings::pictureMemory, PictureMemory::smallest, PictureMemory::largest>(
            "picture-memory", "表示した写真を残しておくメモリー（MB）")};
    for (unsigned int slot = 0; slot < labelCount; ++slot) keys.push_back(Label(slot));
    return keys;
}

CString KeyNames()
{
    CString names;
    for (const SettingKey& key : SettingKeys()) names += key.name + "、";
    return names + "item:項目名";
}

CString SetItem(UserSettings& settings, const CString& title, const CString& value)
{
    ToviItemShowSettings& items = settings.items.GetItemShowSettings();
    if (items.IsEmpty()) return "項目の表示を変えるには、納品データも指定してください。";
    const int position = items.Find(title.c_str());
    if (position == -1) {
        return "項目「" + title +
               "」は写真情報リストに表示できません。tovi settings DELIVERY で確かめてください。";
    }
    if (value != "show" && value != "hide") {
        return "item:" + title + " の値は show か hide にしてください。";
    }
    items[position].Bold(value == "show");
    if (title == controlValueTitle) settings.visual.SetVisibleControlValue(value == "show");
    return {};
}
} // namespace

const std::vector<SettingKey>& SettingKeys()
{
    static const std::vector<SettingKey> keys = MakeKeys();
    return keys;
}

CString SetByKey(UserSettings& settings, const CString& assignment)
{
    const std::size_t equals = assignment.find('=');
    if (equals == CString::npos)
        return "--set は 名前=値 の形で指定してください（例: --set mode=6）。";
    const CString name = assignment.substr(0, equals);
    const CString value = assignment.substr(equals + 1);
    if (name.starts_with(itemPrefix))
        return SetItem(settings, name.substr(itemPrefix.size()), value);
    const auto& keys = SettingKeys();
    const auto key = std::find_if(keys.begin(), keys.end(),
                                  [&name](const SettingKey& known) { return known.name == name; });
    if (key == keys.end()) {
        return "「" + name + "」という設定はありません。名前は " + KeyNames() + " です。";
    }
    if (key->set(settings, *key, value)) return {};
    return key->name + "（" + key->meaning + "）に「" + value +
           "」は設定できません。値: " + key->values;
}
