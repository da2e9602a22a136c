#include "windows/trees/ToviFolderTreePanel.h"

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "photos/ToviPhoto.h"
#include "platform/text/QtText.h"
#include "review/LabelEdits.h"
#include "windows/pictures/Pictures.h"

#include <QContextMenuEvent>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include <utility>

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
    ShowTallies(true);
}

void ToviFolderTreePanel::ShowTallies(bool show)
{
    if (show) {
        tree->SetNotes([this](const QVariant& node) { return NoteOf(node); });
    } else {
        tree->SetNotes({});
    }
}

void ToviFolderTreePanel::SetWorkTitle(const CString& title)
{
    if (std::exchange(workTitle, title) == title || tree->GetRootItem() == nullptr) return;
    tree->GetRootItem()->setData(0, TreeCtrl::TipRole, QtText(title));
}

QString ToviFolderTreePanel::NoteOf(const QVariant& item) const
{
    const auto* const node = static_cast<const ToviNode*>(item.value<void*>());
    if (!hasNodes || node == nullptr) return {};
    // The root shows no number of its own.
    return QtText(TallyText(tally.Of(node), node == GetData() ? 0 : node->GetImageCount()));
}

void ToviFolderTreePanel::CountAnew()
{
    tally.Count(*GetData(), [this](int photo) {
        return GetData()->GetPhotoActualPhotoArray(photo)->IsNotCheck();
    });
    tree->viewport()->update();
}

/// Counts what \p edit has changed; everything where it isn't told.
void ToviFolderTreePanel::TakeUp(const CObject* edit)
{
    const auto* const changed = dynamic_cast<const LabelEdit*>(edit);
    if (changed == nullptr) {
        CountAnew();
        return;
    }
    for (const LabelEdit::Change& change : changed->changes) {
        tally.Change(change.photo, GetData()->GetPhotoActualPhotoArray(change.photo)->IsNotCheck());
    }
    tree->viewport()->update();
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
    const bool tellsOfLabels =
        hint == ToviData::HintPhotoInfoChanged || hint == ToviData::HintLabelsChanged;
    if (hasNodes && tellsOfLabels) TakeUp(object);
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
    tally.Clear();
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
    tree->GetRootItem()->setData(0, TreeCtrl::PathRole, true);
    tree->GetRootItem()->setData(0, TreeCtrl::TipRole, QtText(workTitle));
    CountAnew();
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
