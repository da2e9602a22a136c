#include "windows/trees/ToviTreePanel.h"

#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"

static constexpr int treeId = 59648;

namespace
{
/// A node whose item is to be made.
struct OpenNode
{
    QTreeWidgetItem* parent;
    ToviNode* node;
    int level;
};

QTreeWidgetItem* NewItem(ToviNode* node, int image, int selectedImage)
{
    auto* item = new QTreeWidgetItem;
    item->setText(0, QtText(node->Title()));
    item->setData(0, TreeCtrl::DataRole, QVariant::fromValue(static_cast<void*>(node)));
    item->setData(0, TreeCtrl::ImageRole, image);
    item->setData(0, TreeCtrl::SelectedImageRole, selectedImage);
    return item;
}

void AddCount(QTreeWidgetItem* item, int count)
{
    if (count == 0) return;
    item->setData(0, TreeCtrl::CountRole, count);
    item->setData(0, Qt::AccessibleTextRole,
                  QStringLiteral("%1 %2枚").arg(item->text(0)).arg(count));
}
} // namespace

ToviTreePanel::ToviTreePanel(const QString& name) : tree(new TreeCtrl(this))
{
    SetWindowId(tree, treeId);
    tree->setAccessibleName(name);
    setFocusProxy(tree);
}

void ToviTreePanel::ReCalcLayout()
{
    tree->setGeometry(rect());
}

void ToviTreePanel::resizeEvent(QResizeEvent* event)
{
    ToviPanel::resizeEvent(event);
    ReCalcLayout();
}

QTreeWidgetItem* ToviTreePanel::RegNode(QTreeWidgetItem* parent, ToviNode* node, int image,
                                        int selectedImage)
{
    // The tree takes the items over as one, which is much quicker than one by one.
    QTreeWidgetItem* const top = NewItem(node, image, selectedImage);
    std::vector<OpenNode> open;
    const auto openChildren = [&open](QTreeWidgetItem* item, ToviNode* above, int level) {
        for (int child = above->GetChildNodeCount(); child-- > 0;) {
            open.push_back({item, above->GetNode(child), level});
        }
    };
    openChildren(top, node, 1);
    while (!open.empty()) {
        const OpenNode next = open.back();
        open.pop_back();
        QTreeWidgetItem* const item =
            NewItem(next.node, image + next.level, selectedImage + next.level);
        AddCount(item, next.node->GetImageCount());
        next.parent->addChild(item);
        openChildren(item, next.node, next.level + 1);
    }
    if (parent != nullptr) {
        AddCount(top, node->GetImageCount());
        parent->addChild(top);
    } else {
        tree->addTopLevelItem(top);
    }
    tree->AllOpenTreeItem(top);
    return top;
}
