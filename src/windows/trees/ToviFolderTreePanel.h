#pragma once

#include "windows/trees/NodeTally.h"
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
    /// Tells behind each node what a click on it shows and what is left of it, as at first; or not.
    void ShowTallies(bool show);
    /// The name of the work, with which the tip of the root begins.
    void SetWorkTitle(const CString& title);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void OnSelchangedTree();
    void CountAnew();
    void TakeUp(const CObject* edit);
    QString NoteOf(const QVariant& item) const;
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
    NodeTally tally;
    CString workTitle;
    /// The nodes of the items still exist: they are those of the document that is held.
    bool hasNodes = false;
    QMenu* const menu;
    /// The item that the menu was last opened for.
    QTreeWidgetItem* menuItem = nullptr;
};
