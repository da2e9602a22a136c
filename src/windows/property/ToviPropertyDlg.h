#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "platform/controls/WenDialog.h"

class DrawingPane;
class GaluDSplitter;
class QPlainTextEdit;
class QStackedWidget;
class ToviControlValueTable;
class ToviData;
class ToviPhoto;
class ToviSpiListCtrl;
struct LoadKey;

/// What is known of a photograph besides its picture, on two pages: its information with the
/// control values, and its reference drawings. It changes nothing.
class ToviPropertyDlg : public WenDialog
{
    Q_OBJECT

public:
    explicit ToviPropertyDlg(QWidget* parent);
    ~ToviPropertyDlg() override;

    /// Shows what \p settings say of \p newPhoto of \p newDocument, both of which outlive its
    /// stay.
    void SetContent(ToviData& newDocument, ToviPhoto& newPhoto,
                    const ToviItemShowSettings& settings);
    void ClearContent();
    /// Brings the page 0 (写真情報) or 1 (参考図) to the front.
    void ShowPage(int page);

private:
    QWidget* MakeInformation();
    void OnArrived(const LoadKey& key);
    void ShowItems();
    void ShowValues(const CString& text);

    ToviData* document = nullptr;
    ToviPhoto* photo = nullptr;
    /// What the list looks at; only its items to show are ever set.
    ToviPhotoCtrlVisualSetting listSetting;
    QStackedWidget* pages;
    GaluDSplitter* splitter;
    ToviSpiListCtrl* itemList;
    ToviControlValueTable* controlTable;
    QPlainTextEdit* controlText;
    DrawingPane* drawings;
};
