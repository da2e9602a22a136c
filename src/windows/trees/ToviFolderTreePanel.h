#pragma once

#include "windows/trees/ToviTreePanel.h"
#include "windows/trees/TreePanelRules.h"

#include <QMenu>

/// The classification tree of the document. The node that is selected here is the one whose
/// photographs are shown.
class TOVI_EXPORT ToviFolderTreePanel : public ToviTreePanel
{
    Q_OBJECT

public:
    ToviFolderTreePanel();

    void OnPostVisible() override;
    void OnPreDetachData() override;
    void OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object) override;

    /// Moves the selection to the document's selected node, into view. False when there is none or
    /// the tree doesn't have it.
    bool ChangeSelCompulsion();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void OnSelchangedTree();
    void OnCloseItem();
    void OnOpenItem();

    void Clear();
    /// Gives the tree the pictures of its type.
    void ConstructImageList();
    void Rebuild();
    ToviNode* NodeOf(const QTreeWidgetItem* item) const;
    QTreeWidgetItem* FindItem(const ToviNode* node) const;
    void MarkMenuItem(bool isMarked);

    int treeType = noTreeType;
    /// The nodes of the items still exist: they are those of the document that is held.
    bool hasNodes = false;
    QMenu* const menu;
    /// The item that the menu was last opened for.
    QTreeWidgetItem* menuItem = nullptr;
};
