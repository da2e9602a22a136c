#pragma once

#include "delivery/ToviData.h"
#include "windows/list/PhotoListSource.h"
#include "windows/pictures/ThumbnailTile.h"

/// What the lists show of a document, as the visual setting wants it.
class TOVI_EXPORT PhotoListContent : public PhotoListSource
{
public:
    /// Without a document yet. \p theSetting outlives it.
    explicit PhotoListContent(const ToviPhotoCtrlVisualSetting& theSetting) : setting(theSetting) {}

    /// Shows \p document, which stays until it is taken back with null: then there are no rows.
    void SetDocument(ToviData* document) { data = document; }

    int Count() const override;
    std::vector<CString> Columns() const override;
    int SelectedRow() const override;

    CString Caption(int row) override;
    CString Text(int row, int column) override;
    int StateImage(int row) override;
    QImage Tile(int row, double scale) override;

private:
    ToviPhoto* Photo(int row) const;
    std::vector<const ToviItemShowSetting*> ShownItems() const;

    const ToviPhotoCtrlVisualSetting& setting;
    ToviData* data = nullptr;
    ThumbnailTile tiles;
};
