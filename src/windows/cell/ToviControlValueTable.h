#pragma once

#include "imagefacts/ToviControlValues.h"
#include "platform/controls/GaluListCtrl.h"

class GaluListTable;

/// The table of construction control values (施工管理値): a measurement in each row.
class ToviControlValueTable : public GaluListCtrl
{
    Q_OBJECT

public:
    explicit ToviControlValueTable(QWidget* parent = nullptr);

    void Clear();
    /// Shows \p values if they make a table (see imagefacts/ControlValueRows.h), else nothing.
    void SetValues(const ToviControlValues& values);
    /// The text of \p column, 0 to 3; empty where there is none.
    CString GetItemText(int row, int column) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AdjustColumns();

    GaluListTable* table;
};
