#pragma once

#include "items/ToviPhotoCtrlVisualSetting.h"

#include <QWidget>

class QButtonGroup;
class QLabel;

/// The page of the settings dialog on how photographs are shown.
class SetUpDisplayPage : public QWidget
{
    Q_OBJECT

public:
    SetUpDisplayPage();

    void Show(const ToviPhotoCtrlVisualSetting& setting);
    /// Puts what is chosen into \p setting.
    void Take(ToviPhotoCtrlVisualSetting& setting) const;

private:
    QWidget* MakeModes();
    QWidget* MakeInfoList();
    void OnViewTypeChange();
    void OnShowPhotoInfoList();

    QButtonGroup* modes;
    QLabel* modePreview;
    QButtonGroup* infoList;
    QLabel* infoPreview;
    QButtonGroup* comments;
    QButtonGroup* titles;
};
