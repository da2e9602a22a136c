#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QAbstractTableModel>

#include <vector>

/// One column of a list in report view.
struct GaluListColumn
{
    CString title;
    bool alignRight = false;
};

/// The contents of a list that is filled with texts beforehand. A list that is asked for what it
/// shows has a model of its own.
class TOVI_EXPORT GaluListTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    using Row = std::vector<CString>;

    explicit GaluListTable(std::vector<GaluListColumn> titles, QObject* parent = nullptr);

    /// Shows \p newRows in place of all before. A row may be shorter than there are columns.
    void SetItems(std::vector<Row> newRows);
    /// Empty where there is no such text.
    CString GetItemText(int row, int column) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Qt::Alignment Alignment(int column) const;

    std::vector<GaluListColumn> columns;
    std::vector<Row> rows;
};
