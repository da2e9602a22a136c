#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

/// The page of the settings dialog on the tamper check (画像加工検知).
class SetUpCheckPage : public QWidget
{
    Q_OBJECT

public:
    SetUpCheckPage();

    void Show(const ToviPhotoCtrlVisualSetting& setting);
    /// Puts what is chosen into \p setting.
    void Take(ToviPhotoCtrlVisualSetting& setting) const;

private:
    void OnBtnClickSelectType();
    void ShowTypes();

    CString types;
    QCheckBox* check;
    QPushButton* select;
    QLabel* chosen;
};
