#pragma once

#include "windows/trees/ToviTreePanel.h"

/// The six labels with the numbers of their photographs. The label that is selected here is the one
/// whose photographs are shown; the root shows none.
class TOVI_EXPORT ToviLabelTreePanel : public ToviTreePanel
{
    Q_OBJECT

public:
    ToviLabelTreePanel();

    bool IsLabelTreePanel() override { return true; }
    bool IsSelectTreeRoot() override;
    /// Selects \p label, if it is one.
    void SelectLabel(int label);
    void OnPostVisible() override;
    void OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object) override;

private:
    void OnSelchangedTree();

    void Initialize();
    /// Gives each label its name, without a number behind it.
    void UpdateItemName();
    void UpdateItemCount();
    void ReSelectNode();
};
