#pragma once

#include "platform/controls/WenDialog.h"
#include "windows/setup/ItemLists.h"

class QComboBox;
class QListWidget;
class QPushButton;
class QStackedWidget;
class ToviItemManager;

/// Lets the user choose which items the information lists show, and in which order
/// (「表示項目」と「表示順」の設定).
class TOVI_EXPORT ToviItemSetUpDlg : public WenDialog
{
    Q_OBJECT

public:
    /// OK changes \p theManager, which outlives the dialog.
    ToviItemSetUpDlg(ToviItemManager* theManager, QWidget* parent);

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    void Connect();
    void Do(void (ItemLists::*operation)());
    void ShowLists();
    void EnableButtons();
    void Fill(QListWidget& view, const ItemLists::List& list) const;
    QListWidget* HiddenView() const;

    ToviItemManager* manager;
    ItemLists lists;
    QComboBox* kinds;
    QStackedWidget* hiddenViews;
    QListWidget* shownView;
    QPushButton* showButton;
    QPushButton* hideButton;
    QPushButton* upButton;
    QPushButton* downButton;
    QPushButton* okButton;
};
