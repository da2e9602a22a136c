#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"

#include <QTabWidget>

class GaluDSplitter;
class QPlainTextEdit;
class ToviControlValueTable;
class ToviItemDef;
class ToviPhoto;
class ToviSpiListCtrl;

/// What there is to know of a zoomed photograph, beside it.
class ZoomInfo : public QTabWidget
{
    Q_OBJECT

public:
    explicit ZoomInfo(QWidget* parent = nullptr);

    /// Shows of \p photo what \p newSetting wants. The Exif data are loaded.
    void SetContent(const ToviPhoto& photo, const ToviItemDef& definitions,
                    const ToviPhotoCtrlVisualSetting& newSetting);
    void ClearContent();
    int GetSelectedPage() const { return currentIndex(); }
    /// A page that doesn't exist is ignored.
    void ShowPage(int page) { setCurrentIndex(page); }

private:
    ToviPhotoCtrlVisualSetting setting;
    GaluDSplitter* splitter;
    ToviSpiListCtrl* itemList;
    ToviControlValueTable* valueTable;
    /// The control values as they were written, in the place of a table that has no rows.
    QPlainTextEdit* valueEdit;
};
