#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"

#include <QTabWidget>

class GaluDSplitter;
class QPlainTextEdit;
class ToviControlValueTable;
class ToviData;
class ToviPhoto;
class ToviSpiListCtrl;

/// What there is to know of a zoomed photograph, beside it.
class ZoomInfo : public QTabWidget
{
    Q_OBJECT

public:
    explicit ZoomInfo(QWidget* parent = nullptr);

    /// Shows of \p photo of \p document what \p newSetting wants: of its file what is in hand.
    void SetContent(ToviData& document, ToviPhoto& photo,
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
