#pragma once

#include "windows/keys/KeySet.h"

#include <QWidget>

class KeyEdit;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The page キー: lets the user give commands other keys, of a copy of the keys of now.
class SetUpKeyPage : public QWidget
{
    Q_OBJECT

public:
    SetUpKeyPage();

    const KeySet& Keys() const { return keys; }
    /// Lets the keys on the page count from now on, and keeps them.
    void Take() const;

private:
    void FillCommands();
    void ShowKeys();
    /// Tells what the key that was pressed, and the buttons, would do.
    void ShowChoice();
    QWidget* MakeEditor();
    QWidget* MakeSets();
    void Give(bool inAddition);
    QTreeWidgetItem* ItemOf(FrameCommand command) const;
    std::optional<FrameCommand> Chosen() const;

    KeySet keys;
    QTreeWidget* commands;
    KeyEdit* edit;
    QLabel* warning;
    QPushButton* change;
    QPushButton* add;
    QPushButton* remove;
    QPushButton* reset;
};
