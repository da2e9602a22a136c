#include "platform/controls/GaluListTable.h"

#include "platform/controls/ToolTipText.h"

GaluListTable::GaluListTable(std::vector<GaluListColumn> titles, QObject* parent)
    : QAbstractTableModel(parent), columns(std::move(titles))
{}

void GaluListTable::SetItems(std::vector<Row> newRows)
{
    beginResetModel();
    rows = std::move(newRows);
    endResetModel();
}

CString GaluListTable::GetItemText(int row, int column) const
{
    if (row < 0 || column < 0 || row >= rowCount()) return {};
    const Row& texts = rows[static_cast<std::size_t>(row)];
    const auto place = static_cast<std::size_t>(column);
    return place < texts.size() ? texts[place] : CString();
}

int GaluListTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows.size());
}

int GaluListTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant GaluListTable::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DisplayRole) return QtText(GetItemText(index.row(), index.column()));
    // The tip shows what a narrow column cuts off.
    if (role == Qt::ToolTipRole) return ToolTipText(GetItemText(index.row(), index.column()));
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Alignment(index.column()));
    return {};
}

QVariant GaluListTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    if (role == Qt::DisplayRole) return QtText(columns[static_cast<std::size_t>(section)].title);
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Alignment(section));
    return {};
}

Qt::Alignment GaluListTable::Alignment(int column) const
{
    const bool right = columns[static_cast<std::size_t>(column)].alignRight;
    return Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft);
}
