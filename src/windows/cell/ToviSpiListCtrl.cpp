#include "windows/cell/ToviSpiListCtrl.h"

#include "platform/controls/GaluListTable.h"
#include "platform/pictures/QtColor.h"
#include "windows/cell/InfoRows.h"

#include <QAbstractItemView>
#include <QEvent>

class ToviSpiListCtrl::Table : public GaluListTable
{
public:
    explicit Table(ToviSpiListCtrl* owner)
        : GaluListTable({{"項目名"}, {"入力値"}}, owner), list(owner)
    {}

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::ForegroundRole || index.column() != 0) {
            return GaluListTable::data(index, role);
        }
        const auto colour = list->itemColours.Find(GetItemText(index.row(), 0));
        return colour ? QVariant(QtColor(*colour)) : QVariant();
    }

private:
    const ToviSpiListCtrl* list;
};

ToviSpiListCtrl::ToviSpiListCtrl(const ToviPhotoCtrlVisualSetting* setting, QWidget* parent)
    : GaluListCtrl(Look::Report, parent), visualSetting(setting), table(new Table(this))
{
    SetModel(table);
    SetGridLines(true);
    // The colours of the titles are made for a white sheet.
    QPalette sheet = palette();
    sheet.setColor(QPalette::Base, Qt::white);
    sheet.setColor(QPalette::Text, Qt::black);
    View()->setPalette(sheet);
    View()->viewport()->installEventFilter(this);
}

void ToviSpiListCtrl::Fill(const ToviTextPairArray& pairs)
{
    table->SetItems(InfoRows(visualSetting->GetItemShowSettings(), pairs));
    AdjustColumns();
}

void ToviSpiListCtrl::Clear()
{
    table->SetItems({});
}

CString ToviSpiListCtrl::GetItemText(int row, int column) const
{
    return table->GetItemText(row, column);
}

bool ToviSpiListCtrl::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != View()->viewport()) return GaluListCtrl::eventFilter(watched, event);
    if (event->type() == QEvent::Resize) AdjustColumns();
    return false;
}

void ToviSpiListCtrl::AdjustColumns()
{
    const bool isBeside =
        visualSetting->GetImageTextArrange() == ToviPhotoCtrlVisualSetting::TextBeside;
    const auto [titles, values] = InfoColumnWidths(
        View()->viewport()->width(), visualSetting->GetItemShowSettings().IsShowTitle(), isBeside);
    SetColumnWidth(0, titles);
    SetColumnWidth(1, values);
}
