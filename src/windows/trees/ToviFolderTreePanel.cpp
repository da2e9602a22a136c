#include "windows/trees/ToviFolderTreePanel.h"

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "windows/pictures/Pictures.h"

#include <QContextMenuEvent>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

static constexpr int imageSide = 16;
static constexpr int closeCommand = 32771;
static constexpr int openCommand = 32790;

namespace
{
QAction* AddCommand(QMenu& menu, int id, const QString& text, const QString& explanation)
{
    QAction* const action = menu.addAction(text);
    action->setData(id);
    action->setToolTip(explanation);
    action->setStatusTip(explanation);
    return action;
}
} // namespace

ToviFolderTreePanel::ToviFolderTreePanel()
    : ToviTreePanel(QStringLiteral("分類ツリー")), menu(new QMenu(this))
{
    menu->setToolTipsVisible(true);
    connect(AddCommand(*menu, closeCommand, QStringLiteral("この項目を閉じる"),
                       QStringLiteral("項目以下のアイテムを全て閉じる")),
            &QAction::triggered, this, &ToviFolderTreePanel::OnCloseItem);
    connect(AddCommand(*menu, openCommand, QStringLiteral("この項目を開く"),
                       QStringLiteral("この項目以下、全ての項目を開く")),
            &QAction::triggered, this, &ToviFolderTreePanel::OnOpenItem);
    connect(menu, &QMenu::aboutToHide, this, [this] { MarkMenuItem(false); });
    connect(tree, &QTreeWidget::itemSelectionChanged, this, &ToviFolderTreePanel::OnSelchangedTree);
}

void ToviFolderTreePanel::OnPostVisible()
{
    ToviData* const document = GetData();
    if (document == nullptr) return;
    document->AllTextLoad();
    document->SetCurPhotoArray(true, false);
    document->SetSelected(document->GetSelectedNode(), true);
}

void ToviFolderTreePanel::OnPreDetachData()
{
    hasNodes = false;
}

void ToviFolderTreePanel::OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object)
{
    ToviTreePanel::OnUpdate(sender, hint, object);
    if (GetData() == nullptr) return;
    const int type = GetData()->GetVisualSetting().GetTreeType();
    const FolderTreeReaction reaction = FolderTreeReactionTo(hint, treeType, type);
    if (reaction == FolderTreeReaction::None) return;
    treeType = type;
    Clear();
    if (reaction == FolderTreeReaction::Rebuild) Rebuild();
}

void ToviFolderTreePanel::Clear()
{
    menu->close();
    menuItem = nullptr;
    const QSignalBlocker quiet(tree);
    tree->clear();
    ConstructImageList();
}

void ToviFolderTreePanel::ConstructImageList()
{
    tree->SetImages(PictureIcons(FolderTreeImagesOf(treeType).number), imageSide);
}

void ToviFolderTreePanel::Rebuild()
{
    RegNode(nullptr, GetData(), 0, FolderTreeImagesOf(treeType).selectedRoot);
    hasNodes = true;
    ChangeSelCompulsion();
}

bool ToviFolderTreePanel::ChangeSelCompulsion()
{
    if (GetData() == nullptr) return false;
    QTreeWidgetItem* const item = FindItem(GetData()->GetSelectedNode());
    if (item == nullptr) return false;
    tree->setCurrentItem(item);
    tree->scrollToItem(item);
    return true;
}

ToviNode* ToviFolderTreePanel::NodeOf(const QTreeWidgetItem* item) const
{
    if (item == nullptr || !hasNodes) return nullptr;
    return static_cast<ToviNode*>(item->data(0, TreeCtrl::DataRole).value<void*>());
}

QTreeWidgetItem* ToviFolderTreePanel::FindItem(const ToviNode* node) const
{
    if (node == nullptr) return nullptr;
    for (QTreeWidgetItemIterator item(tree); *item != nullptr; ++item) {
        if (NodeOf(*item) == node) return *item;
    }
    return nullptr;
}

void ToviFolderTreePanel::OnSelchangedTree()
{
    ToviNode* const node = NodeOf(tree->GetSelectedItem());
    if (node != nullptr) GetData()->SetSelected(node, false);
}

void ToviFolderTreePanel::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPoint clicked = tree->viewport()->mapFromGlobal(event->globalPos());
    QTreeWidgetItem* const item = isByMouse ? tree->itemAt(clicked) : tree->currentItem();
    if (item == nullptr) return;
    if (!isByMouse) tree->scrollToItem(item);
    menuItem = item;
    MarkMenuItem(true);
    const QPoint below = tree->visualItemRect(item).bottomLeft();
    menu->popup(tree->viewport()->mapToGlobal(isByMouse ? clicked : below));
}

void ToviFolderTreePanel::MarkMenuItem(bool isMarked)
{
    if (menuItem != nullptr) menuItem->setData(0, TreeCtrl::MarkRole, isMarked);
}

void ToviFolderTreePanel::OnCloseItem()
{
    if (menuItem != nullptr) tree->AllCloseTreeItem(menuItem);
}

void ToviFolderTreePanel::OnOpenItem()
{
    if (menuItem != nullptr) tree->AllOpenTreeItem(menuItem);
}
