#include "hosts/cli/Delivery.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "kinds/DeliveryFamilies.h"

#include "platform/host/CDocument.h"

#include <algorithm>

namespace
{
/// The document's host where nobody looks on: there are no views to tell.
class SilentDocument : public CDocument
{
public:
    void UpdateAllViews(CWnd*, int, CObject*) override {}
};

SilentDocument hostDocument;

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
std::vector<std::string> WordsForFamilies()
{
    std::vector<std::string> words = {familyIsGuessed};
    for (const DeliveryFamily& family : deliveryFamilies) words.emplace_back(family.key);
    return words;
}
} // namespace

Options DeliveryOptions(DeliveryArguments& arguments, Need need)
{
    return {{.name = "DELIVERY",
             .help = "PHOTO.XML か INDEX_*.XML、そのあるフォルダ（DISK1 "
                     "などの上のフォルダでもよい）、またはそれを"
                     "入れた ZIP ファイルか ISO イメージ",
             .target = &arguments.path,
             .need = need},
            {.name = "--family",
             .help = "要領の系統: " + FamilyKeys(true),
             .target = &arguments.family,
             .valueName = "NAME",
             .accepted = OneOf{WordsForFamilies()}}};
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
    OpenedDelivery delivery = OpenDelivery(hostDocument, arguments.path,
                                           FamilyWithKey(arguments.family), " --family の指定");
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
