#pragma once

#include "imagefacts/ImageTypeChoice.h"
#include "platform/controls/WenDialog.h"

class QLabel;
class QListWidget;

/// Lets the user tick the types of verifiers for the tamper check (画像加工検知タイプの選択).
class TOVI_EXPORT ToviSelectImageTypeDlg : public WenDialog
{
    Q_OBJECT

public:
    explicit ToviSelectImageTypeDlg(QWidget* parent);

    /// To be called before the dialog is shown.
    void SetTypes(const CWordArray& chosen) { types = chosen; }
    /// The types as they were set or, after OK, ticked, in the order of the list.
    const CWordArray& GetTypes() const { return types; }

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    void ShowDescription();

    CWordArray types;
    std::vector<ImageTypeRow> rows;
    QListWidget* list;
    QLabel* description;
};
