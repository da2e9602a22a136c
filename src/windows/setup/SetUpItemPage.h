#pragma once

#include "windows/setup/SetUpRules.h"

#include <QWidget>

class QButtonGroup;
class QComboBox;
class QListWidget;
class ToviItemShowSettings;

/// The page of the settings dialog on the items of the information lists and on the order of the
/// photographs.
class SetUpItemPage : public QWidget
{
    Q_OBJECT

public:
    SetUpItemPage();

    void ShowItems(const ToviItemShowSettings& items);
    void ShowSort(const ToviSortCondition& condition);
    SortChoice GetSort() const;

signals:
    /// The user wants to choose the items.
    void ItemsRequested();

private:
    QWidget* MakeItems();
    QWidget* MakeSort();
    void OnSortClicked(bool sorts);
    void EnableSort(bool enable);
    void Choose(int direction);

    QListWidget* items;
    QButtonGroup* sort;
    QComboBox* key;
    QButtonGroup* direction;
};
