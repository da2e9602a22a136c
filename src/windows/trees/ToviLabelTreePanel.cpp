#include "windows/trees/ToviLabelTreePanel.h"

#include "photos/LabelSlots.h"
#include "platform/text/QtText.h"
#include "review/LabelCaption.h"
#include "windows/pictures/Pictures.h"
#include "windows/trees/TreePanelRules.h"

#include <QSignalBlocker>

static constexpr int pictures = 815;
static constexpr int imageSide = 24;
static constexpr int rootLabel = -1;

namespace
{
QTreeWidgetItem* NewItem(const QString& text, int image, int selectedImage, int label)
{
    auto* item = new QTreeWidgetItem({text});
    item->setData(0, TreeCtrl::DataRole, label);
    item->setData(0, TreeCtrl::ImageRole, image);
    item->setData(0, TreeCtrl::SelectedImageRole, selectedImage);
    return item;
}

int LabelOf(const QTreeWidgetItem* item)
{
    return item->data(0, TreeCtrl::DataRole).toInt();
}

CString NameOf(ToviData& data, int label)
{
    return LabelCaption(*data.GetLabelManager(), static_cast<unsigned int>(label));
}
} // namespace

ToviLabelTreePanel::ToviLabelTreePanel() : ToviTreePanel(QStringLiteral("付箋ツリー"))
{
    tree->SetImages(PictureIcons(pictures), imageSide);
    connect(tree, &QTreeWidget::itemSelectionChanged, this, &ToviLabelTreePanel::OnSelchangedTree);
}

bool ToviLabelTreePanel::IsSelectTreeRoot()
{
    const QTreeWidgetItem* selected = tree->GetSelectedItem();
    return selected != nullptr && selected == tree->GetRootItem();
}

void ToviLabelTreePanel::SelectLabel(int label)
{
    QTreeWidgetItem* const root = tree->GetRootItem();
    if (root != nullptr && label >= 0 && label < root->childCount()) {
        tree->setCurrentItem(root->child(label));
    }
}

void ToviLabelTreePanel::OnPostVisible()
{
    if (GetData() == nullptr) return;
    GetData()->AllTextLoad();
    GetData()->SetCurPhotoArray(true, false);
    ReSelectNode();
    if (tree->GetRootItem() != nullptr) tree->GetRootItem()->setExpanded(true);
    UpdateItemCount();
}

void ToviLabelTreePanel::OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object)
{
    ToviTreePanel::OnUpdate(sender, hint, object);
    if (GetData() == nullptr) return;
    const LabelTreeReaction reaction = LabelTreeReactionTo(hint, isVisible());
    if (reaction.initialize) Initialize();
    if (reaction.recount) UpdateItemCount();
    if (reaction.reselect) ReSelectNode();
}

void ToviLabelTreePanel::Initialize()
{
    const QSignalBlocker quiet(tree);
    tree->clear();
    QTreeWidgetItem* const root = NewItem(QStringLiteral("付箋"), 7, 0, rootLabel);
    for (int label = 0; label < static_cast<int>(labelCount); ++label) {
        root->addChild(NewItem({}, label + 8, label + 1, label));
    }
    tree->addTopLevelItem(root);
    UpdateItemName();
}

void ToviLabelTreePanel::UpdateItemName()
{
    QTreeWidgetItem* const root = tree->GetRootItem();
    for (int row = 0; row < root->childCount(); ++row) {
        root->child(row)->setText(0, QtText(NameOf(*GetData(), LabelOf(root->child(row)))));
    }
}

void ToviLabelTreePanel::UpdateItemCount()
{
    QTreeWidgetItem* const root = tree->GetRootItem();
    for (int row = 0; root != nullptr && row < root->childCount(); ++row) {
        QTreeWidgetItem* const item = root->child(row);
        const int label = LabelOf(item);
        const int count = GetData()->CountLabel(static_cast<unsigned long>(label));
        item->setText(0, QtText(LabelTreeText(NameOf(*GetData(), label), count)));
    }
}

void ToviLabelTreePanel::ReSelectNode()
{
    GetData()->SetSelected(GetData()->GetSelectedIndex());
}

void ToviLabelTreePanel::OnSelchangedTree()
{
    const QTreeWidgetItem* selected = tree->GetSelectedItem();
    if (GetData() != nullptr && selected != nullptr) GetData()->SetSelected(LabelOf(selected));
}
