#include "extraction/ToviSortCondition.h"
#include "hosts/cli/Commands.h"
#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"
#include "hosts/cli/Profile.h"
#include "hosts/cli/SettingKeys.h"
#include "items/ToviItemManager.h"
#include "review/ToviLabelManager.h"

#include "platform/host/HostServices.h"

#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::vector<std::string> assignments;
};

UserSettings LoadSettings()
{
    UserSettings settings;
    settings.visual.Load();
    settings.labels.Load(nullptr);
    settings.sort.Load();
    settings.readingLimit = ReadingLimit::Load();
    settings.pictureMemory = PictureMemory::Load();
    return settings;
}

UserSettings SettingsOf(ToviData& document)
{
    return {document.GetVisualSetting(), *document.GetLabelManager(), document.GetSortCondition(),
            ReadingLimit::Load(),        PictureMemory::Load(),       *document.GetItemManager()};
}

/// False, with a sentence on standard error, when one of the assignments can't be.
bool Assign(UserSettings& settings, const std::vector<std::string>& assignments)
{
    for (const std::string& assignment : assignments) {
        const CString wrong = SetByKey(settings, assignment);
        if (wrong.empty()) continue;
        Complain(wrong);
        return false;
    }
    return true;
}

/// Saves the items, which are those of the kind of delivery \p kind.
bool SaveItems(ToviItemManager& items, const CString& kind)
{
    return items.Save() && GetHostServices().profile->WriteProfileString(
                               ToviItemDef::PhotoFileTypeSection_, ToviItemDef::TypeEntry_, kind);
}

/// Saves what was changed in \p settings since \p before. False when the profile could not be
/// written.
bool Save(UserSettings& settings, const UserSettings& before, const CString& kind)
{
    const bool withItems =
        settings.items.GetItemShowSettings() != before.items.GetItemShowSettings();
    return SaveInProfile([&] {
        return settings.labels.Save(nullptr) && settings.visual.Save() && settings.sort.Save() &&
               (settings.readingLimit == before.readingLimit ||
                ReadingLimit::Save(settings.readingLimit)) &&
               (settings.pictureMemory == before.pictureMemory ||
                PictureMemory::Save(settings.pictureMemory)) &&
               (!withItems || SaveItems(settings.items, kind));
    });
}

const char* KindName(InfoType type)
{
    if (type == InfoFile) return "file";
    return type == InfoExif ? "exif" : "delivery";
}

Json ToJson(const UserSettings& settings)
{
    Json values = Json::Object();
    for (const SettingKey& key : SettingKeys()) values.Add(key.name, key.get(settings, key));
    Json json = Json::Object({{"settings", values}});
    const ToviItemShowSettings& items = settings.items.GetItemShowSettings();
    if (items.IsEmpty()) return json;
    Json shown = Json::Array();
    for (const ToviItemShowSetting& item : items) {
        shown.Add(Json::Object(
            {{"item", item.title}, {"shown", item.bold}, {"kind", KindName(item.infoType)}}));
    }
    json.Add("items", shown);
    return json;
}

int ChangeAndShow(const UserSettings& before, const CString& kind,
                  const std::vector<std::string>& assignments)
{
    UserSettings settings = before;
    if (!Assign(settings, assignments)) return ExitWrongUsage;
    if (!assignments.empty() && !Save(settings, before, kind)) {
        Complain("設定ファイルに書き込めません。書き込みの権限と空き容量を確かめてください。");
        return ExitFailed;
    }
    std::cout << ToText(ToJson(settings)) << '\n';
    return ExitDone;
}

int Run(const Arguments& arguments)
{
    if (arguments.delivery.path.empty()) {
        return ChangeAndShow(LoadSettings(), "", arguments.assignments);
    }
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery);
    if (!delivery.IsLoaded()) return ExitFailed;
    return ChangeAndShow(SettingsOf(*delivery.document),
                         delivery.document->GetItemDef()->GetSection(), arguments.assignments);
}

CString Footer()
{
    CString text = "出力: {\"settings\":{名前:値},\"items\":[{\"item\",\"shown\",\"kind\"}]}"
                   "（itemsは納品データを指定したとき）\n設定の名前と値:\n";
    for (const SettingKey& key : SettingKeys()) {
        text += "  " + key.name + "  " + key.meaning + ": " + key.values + "\n";
    }
    return text + "  item:項目名  写真情報リストに表示するか: show hide\n";
}
} // namespace

Command SettingsCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "settings",
            .help = "保存してある設定を表示し、変える",
            .options = Joined(
                {DeliveryOptions(arguments->delivery, Need::Optional),
                 {{.name = "--set",
                   .help = "設定を変える。繰り返して指定できる。一つでも誤りがあれば何も変えない",
                   .target = &arguments->assignments,
                   .valueName = "KEY=VALUE ..."}}}),
            .footer = Footer(),
            .run = [arguments] { return Run(*arguments); }};
}
