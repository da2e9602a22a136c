#pragma once

#include "delivery/ToviData.h"
#include "windows/list/PhotoListSource.h"
#include "windows/list/RowsInSight.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/pictures/ThumbnailTile.h"

#include <QObject>

/// What the lists show of a document, as the visual setting wants it: of the files what the
/// FileLoader has.
class TOVI_EXPORT PhotoListContent : public QObject, public PhotoListSource
{
public:
    /// Without a document yet. \p theSetting outlives it.
    explicit PhotoListContent(const ToviPhotoCtrlVisualSetting& theSetting);
    ~PhotoListContent() override;

    /// Shows \p document, which stays until it is taken back with null: then there are no rows.
    void SetDocument(ToviData* document);

    int Count() const override;
    std::vector<ListColumn> Columns() override;
    int SelectedRow() const override;

    std::pair<int, bool> Order() override;
    bool ChangeOrder(int column) override;

    LabelSet Labels(int row) override;
    CString LabelNames(int row) override;
    CString Caption(int row) override;
    CString Text(int row, int column) override;
    std::optional<int> StateImage(int row) override;
    ListTile Tile(int row, double scale) override;
    void ShowRows(const RowRange& rows, bool withTiles) override;

private:
    ToviPhoto* Photo(int row) const;
    void OnArrived(const LoadKey& key);
    void AddWishes(std::vector<LoadWish>& wishes, RowRange rows, Urgency urgency,
                   bool withTiles) const;
    std::vector<const ToviItemShowSetting*> ShownItems() const;
    void AddLeadingColumns();

    const ToviPhotoCtrlVisualSetting& setting;
    ToviData* data = nullptr;
    ThumbnailTile tiles;
    /// As of the last refill, with the setting of each item or fact of the settings.
    std::vector<ListColumn> columns;
    std::vector<const ToviItemShowSetting*> items;
    /// What is in sight or near it.
    RowRange fetched;
};
