#include "windows/list/PhotoListTable.h"

#include "platform/controls/GaluListCtrl.h"
#include "platform/controls/ToolTipText.h"
#include "windows/pictures/Pictures.h"

#include <QPainter>

#include <algorithm>

namespace
{
/// The room for tiles, in bytes: a screen full of them on the largest screens, and 320 tiles where
/// a pixel of the layout is one of the device. One that went is soon made again.
constexpr int tileRoom = 32 * 1024 * 1024;
constexpr int stateNone = 515;
constexpr int stateUnaltered = 513;
constexpr int stateAltered = 514;
constexpr int stateIconSide = 16;
constexpr int labelPicturesNumber = 816;
} // namespace

PhotoListTable::PhotoListTable(PhotoListSource& theSource, GaluListCtrl* theList)
    : QAbstractTableModel(theList), source(theSource), list(theList), tiles(tileRoom)
{
    for (const int number : {stateNone, stateUnaltered, stateAltered}) {
        stateIcons.push_back(PictureIcons(number).front());
    }
    labelIcons = PictureIcons(labelPicturesNumber);
}

void PhotoListTable::Refill()
{
    beginResetModel();
    rows = source.Count();
    columns = ShowsTiles() ? std::vector<ListColumn>(1) : source.Columns();
    const auto state = std::ranges::find_if(columns, [](const ListColumn& column) {
        return column.kind != ListColumn::Labels && column.kind != ListColumn::Comment;
    });
    stateColumn = static_cast<int>(state - columns.begin());
    DropTiles();
    endResetModel();
}

void PhotoListTable::DropTile(int row)
{
    tiles.remove(row);
}

void PhotoListTable::DropTiles()
{
    tiles.clear();
}

int PhotoListTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows;
}

int PhotoListTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant PhotoListTable::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return QtText(Text(index));
    case Qt::ToolTipRole:
        // The tip shows what a narrow column or two short lines cut off.
        return ToolTipText(IsLabels(index) ? source.LabelNames(index.row()) : Text(index));
    case Qt::AccessibleTextRole:
        return QtText(IsLabels(index) ? source.LabelNames(index.row()) : Text(index));
    case Qt::DecorationRole:
        return Picture(index);
    case Qt::SizeHintRole:
        return RowSize(index.row());
    default:
        return {};
    }
}

QVariant PhotoListTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const CString& title = columns[static_cast<std::size_t>(section)].title;
    if (role == Qt::DisplayRole) return QtText(title);
    if (role == Qt::ToolTipRole) return ToolTipText(title);
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft);
    return {};
}

bool PhotoListTable::ShowsTiles() const
{
    return list->GetLook() == GaluListCtrl::Look::Icon;
}

CString PhotoListTable::Text(const QModelIndex& index) const
{
    return ShowsTiles() ? source.Caption(index.row()) : source.Text(index.row(), index.column());
}

QVariant PhotoListTable::Picture(const QModelIndex& index) const
{
    if (ShowsTiles()) return Tile(index.row());
    if (IsLabels(index)) return LabelPicture(index.row());
    return index.column() == stateColumn ? StateIcon(index.row()) : QVariant();
}

bool PhotoListTable::IsLabels(const QModelIndex& index) const
{
    const auto column = static_cast<std::size_t>(index.column());
    return column < columns.size() && columns[column].kind == ListColumn::Labels;
}

/// The badges of the pasted labels beside each other.
QPixmap PhotoListTable::LabelPicture(int row) const
{
    const LabelSet labels = source.Labels(row);
    if (labels.none()) return {};
    QPixmap& made = labelPictures[labels.to_ulong()];
    const double scale = list->devicePixelRatioF();
    if (!made.isNull() && made.devicePixelRatio() == scale) return made;
    made = QPixmap(
        (QSizeF(static_cast<int>(labels.count()) * (stateIconSide + 1), stateIconSide) * scale)
            .toSize());
    made.setDevicePixelRatio(scale);
    made.fill(Qt::transparent);
    QPainter painter(&made);
    int left = 0;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (!labels.test(slot)) continue;
        labelIcons[slot].paint(&painter, QRect(left, 0, stateIconSide, stateIconSide));
        left += stateIconSide + 1;
    }
    return made;
}

QIcon PhotoListTable::StateIcon(int row) const
{
    const std::optional<int> state = source.StateImage(row);
    return stateIcons[static_cast<std::size_t>(state.value_or(0))];
}

QPixmap PhotoListTable::Tile(int row) const
{
    const double scale = list->devicePixelRatioF();
    const QPixmap* const kept = tiles.object(row);
    if (kept != nullptr && kept->devicePixelRatio() == scale) return *kept;
    const ListTile built = source.Tile(row, scale);
    if (built.image.isNull()) return {};
    QPixmap tile = QPixmap::fromImage(built.image);
    tile.setDevicePixelRatio(scale);
    if (built.isWhole) tiles.insert(row, new QPixmap(tile), built.image.sizeInBytes());
    return tile;
}

/// A report takes the height of all its rows from the first one, which needn't be read for that.
QVariant PhotoListTable::RowSize(int row) const
{
    if (row != 0) return {};
    return QSize(0, std::max(list->fontMetrics().height(), stateIconSide));
}
