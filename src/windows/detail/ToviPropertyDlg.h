#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "platform/controls/WenDialog.h"

class DrawingPane;
class GaluDSplitter;
class QPlainTextEdit;
class QStackedWidget;
class ToviControlValueTable;
class ToviItemDef;
class ToviPhoto;
class ToviSpiListCtrl;

/// What is known of a photograph besides its picture, on two pages: its information with the
/// control values, and its reference drawings. It changes nothing.
class ToviPropertyDlg : public WenDialog
{
    Q_OBJECT

public:
    explicit ToviPropertyDlg(QWidget* parent);

    /// Shows \p photo, of which \p settings say what; both pointers may be null. The photograph
    /// outlives its stay.
    void SetContent(ToviPhoto* photo, ToviItemDef* itemDef, const ToviItemShowSettings& settings);
    void ClearContent();
    /// Brings the page 0 (写真情報) or 1 (参考図) to the front.
    void ShowPage(int page);

private:
    QWidget* MakeInformation();
    void ShowItems(const ToviPhoto* photo, ToviItemDef* itemDef);
    void ShowValues(const CString& text);

    /// What the list looks at; only its items to show are ever set.
    ToviPhotoCtrlVisualSetting listSetting;
    QStackedWidget* pages;
    GaluDSplitter* splitter;
    ToviSpiListCtrl* itemList;
    ToviControlValueTable* controlTable;
    QPlainTextEdit* controlText;
    DrawingPane* drawings;
};
