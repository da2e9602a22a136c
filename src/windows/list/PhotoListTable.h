#pragma once

#include "windows/list/PhotoListSource.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QIcon>
#include <QPixmap>

#include <map>

class GaluListCtrl;

/// The rows of a PhotoListSource for the view of a list. What the view asks for is asked of the
/// source; of that, whole tiles are kept as far as there is room.
class PhotoListTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// For \p theList, which is its parent.
    PhotoListTable(PhotoListSource& theSource, GaluListCtrl* theList);

    const std::vector<ListColumn>& Columns() const { return columns; }
    /// Takes the source's rows and columns over and drops all tiles.
    void Refill();
    void DropTile(int row);
    void DropTiles();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool ShowsTiles() const;
    CString Text(const QModelIndex& index) const;
    QVariant Picture(const QModelIndex& index) const;
    QIcon StateIcon(int row) const;
    QPixmap LabelPicture(int row) const;
    bool IsLabels(const QModelIndex& index) const;
    QPixmap Tile(int row) const;
    QVariant RowSize(int row) const;

    PhotoListSource& source;
    GaluListCtrl* list;
    int rows = 0;
    std::vector<ListColumn> columns;
    /// The column with the state icons: the first one that isn't a leading one of labels or a
    /// comment.
    int stateColumn = 0;
    /// The pictures of the sets of labels that were asked for.
    mutable std::map<unsigned long, QPixmap> labelPictures;
    std::vector<QIcon> stateIcons;
    std::vector<QIcon> labelIcons;
    /// By row. The view asks through const calls.
    mutable QCache<int, QPixmap> tiles;
};
