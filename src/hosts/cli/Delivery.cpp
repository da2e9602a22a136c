#include "hosts/cli/Delivery.h"
#include "items/ToviPhotoCtrlVisualSetting.h"

#include "platform/host/CDocument.h"

#include <algorithm>

namespace
{
struct Family
{
    const char* name;
    PhotoXMLType type;
};

constexpr Family families[] = {{"mlit", PhotoXMLMlit},
                               {"kowan", PhotoXMLKowan},
                               {"maff", PhotoXMLMaff},
                               {"nexco", PhotoXMLNexco}};

/// The document's host where nobody looks on: there are no views to tell.
class SilentDocument : public CDocument
{
public:
    void UpdateAllViews(CWnd*, int, CObject*) override {}
};

SilentDocument hostDocument;

std::optional<PhotoXMLType> ChosenFamily(const DeliveryArguments& arguments)
{
    const auto* chosen =
        std::find_if(std::begin(families), std::end(families),
                     [&](const Family& known) { return arguments.family == known.name; });
    return chosen != std::end(families) ? std::optional(chosen->type) : std::nullopt;
}

CString ChildTitles(const ToviNode& node)
{
    CString titles;
    for (const ToviNode* child : node.Items()) {
        if (!titles.empty()) titles += "、";
        titles += child->Title();
    }
    return titles.empty() ? "ありません" : titles + " です";
}

ToviNode* FindChild(ToviNode& node, const CString& title)
{
    const auto& children = node.Items();
    const auto found =
        std::find_if(children.begin(), children.end(),
                     [&title](const ToviNode* child) { return child->Title() == title; });
    return found == children.end() ? nullptr : *found;
}
} // namespace

const char* FamilyName(PhotoXMLType family)
{
    const auto* found =
        std::find_if(std::begin(families), std::end(families),
                     [family](const Family& known) { return known.type == family; });
    return found->name;
}

Options DeliveryOptions(DeliveryArguments& arguments, Need need)
{
    return {
        {.name = "DELIVERY",
         .help =
             "PHOTO.XML か INDEX_*.XML、またはそのあるフォルダ（DISK1 などの上のフォルダでもよい）",
         .target = &arguments.path,
         .need = need},
        {.name = "--family",
         .help = "要領の系統: "
                 "auto（DTDなどから判断）、mlit（国交省）、kowan（港湾）、maff（農水省）、nexco",
         .target = &arguments.family,
         .valueName = "NAME",
         .accepted = OneOf{{"auto", "mlit", "kowan", "maff", "nexco"}}}};
}

Option NodeOption(std::vector<std::string>& nodes)
{
    return {.name = "--node",
            .help =
                "分類の名前。根から順に繰り返して指定する（例: --node 工事 --node 施工状況写真）",
            .target = &nodes,
            .valueName = "TITLE ..."};
}

Option TreeTypeOption(TreeTypeArgument& type)
{
    return {.name = "--type",
            .help = "木の種類（既定は設定のとおり）: 0 大分類・写真区分・工種・種別・細別、1 "
                    "撮影箇所、2 工種・種別・細別",
            .target = &type,
            .valueName = "0|1|2",
            .accepted = Between{0, 2}};
}

OpenedDelivery OpenDelivery(const DeliveryArguments& arguments, TreeTypeArgument tree)
{
    OpenedDelivery delivery =
        OpenDelivery(hostDocument, arguments.path, ChosenFamily(arguments), " --family の指定");
    if (!delivery.problem.empty()) Complain(delivery.problem);
    if (!delivery.IsLoaded()) return delivery;
    if (!delivery.notice.empty()) Complain(delivery.notice);
    ToviData& document = *delivery.document;
    document.Load();
    const int type = tree.value_or(document.GetVisualSetting().GetTreeType());
    document.BuildTreeNode(static_cast<ToviPhotoCtrlVisualSetting::TreeType>(type));
    return delivery;
}

bool SelectNode(ToviData& document, const std::vector<std::string>& titles)
{
    ToviNode* node = &document;
    for (const std::string& title : titles) {
        ToviNode* child = FindChild(*node, title);
        if (child == nullptr) {
            Complain("分類「" + title + "」がありません。ここで選べる分類は " + ChildTitles(*node) +
                     "。");
            return false;
        }
        node = child;
    }
    document.SetSelected(node, false);
    return true;
}
