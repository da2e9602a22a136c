#pragma once

#include "windows/panel/ToviPanel.h"
#include "windows/trees/TreeCtrl.h"

/// A panel that is all tree, by which the user decides what photographs are shown.
class TOVI_EXPORT ToviTreePanel : public ToviPanel
{
    Q_OBJECT

public:
    void ReCalcLayout() override;
    QWidget* GetCtrl() override { return tree; }
    TreeCtrl* GetTreeCtrl() const { return tree; }

    /// Adds \p node and all beneath it to the children of \p parent, or to the topmost items when
    /// that is null, fully open; returns the item of \p node. A topmost one shows no count. \p
    /// image and \p selectedImage are the indexes of its pictures; each level beneath has the next
    /// ones.
    virtual QTreeWidgetItem* RegNode(QTreeWidgetItem* parent, ToviNode* node, int image,
                                     int selectedImage);

protected:
    /// \p name tells the tree apart for those who can't see it.
    explicit ToviTreePanel(const QString& name);

    void resizeEvent(QResizeEvent* event) override;

    TreeCtrl* const tree;
};
