#include "windows/cell/ToviControlValueTable.h"

#include "imagefacts/ControlValueRows.h"
#include "platform/controls/GaluListTable.h"

#include <QAbstractItemView>
#include <QEvent>

#include <algorithm>

static constexpr int columnWidth = 85;
static constexpr int smallestColumnWidth = 60;

ToviControlValueTable::ToviControlValueTable(QWidget* parent)
    : GaluListCtrl(Look::Report, parent),
      table(new GaluListTable({{"項目名"}, {"設計値", true}, {"実測値", true}, {"差", true}}, this))
{
    SetModel(table);
    SetGridLines(true);
    View()->viewport()->installEventFilter(this);
}

void ToviControlValueTable::Clear()
{
    table->SetItems({});
}

void ToviControlValueTable::SetValues(const ToviControlValues& values)
{
    std::vector<GaluListTable::Row> rows;
    for (const ToviControlValue* value : ControlValueRows(values)) {
        rows.push_back(
            {value->GetName(), value->GetDesign(), value->GetActual(), value->GetDifference()});
    }
    table->SetItems(std::move(rows));
}

CString ToviControlValueTable::GetItemText(int row, int column) const
{
    return table->GetItemText(row, column);
}

bool ToviControlValueTable::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != View()->viewport()) return GaluListCtrl::eventFilter(watched, event);
    if (event->type() == QEvent::Resize) AdjustColumns();
    return false;
}

/// The three numbers get narrower where the table is, the name takes what is left.
void ToviControlValueTable::AdjustColumns()
{
    const int width = View()->viewport()->width();
    const int number = std::clamp(width / 4, smallestColumnWidth, columnWidth);
    SetColumnWidth(0, std::max(number, width - 3 * number));
    for (int column = 1; column < table->columnCount(); ++column) SetColumnWidth(column, number);
}
