#pragma once

#include "items/ToviTextPair.h"
#include "platform/controls/GaluListCtrl.h"
#include "windows/cell/ItemColours.h"

/// The information list of a cell: the titles of a photograph's items, coloured by their kind, and
/// its values.
class ToviSpiListCtrl : public GaluListCtrl
{
    Q_OBJECT

public:
    /// \p setting outlives the list.
    ToviSpiListCtrl(const ToviPhotoCtrlVisualSetting* setting, QWidget* parent);

    /// Shows those of \p pairs that the setting wants, in its order.
    void Fill(const ToviTextPairArray& pairs);
    /// Shows nothing. The colours stay.
    void Clear();
    /// The text of \p column, 0 or 1; empty where there is none.
    CString GetItemText(int row, int column) const;

    /// The colours of the titles; what is drawn next has them.
    ItemColours itemColours;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Table;

    void AdjustColumns();

    const ToviPhotoCtrlVisualSetting* visualSetting;
    Table* table;
};
