#pragma once

#include "windows/setup/SetUpRules.h"

#include <QWidget>

class QGridLayout;
class QLineEdit;
class ToviColorButton;
class ToviLabelManager;

/// The page of the settings dialog on the names of the labels.
class SetUpLabelPage : public QWidget
{
    Q_OBJECT

public:
    SetUpLabelPage();

    void Show(const ToviLabelManager& labels);
    LabelNames GetNames() const;
    /// Moves the focus to the name of \p slot, all of which is selected.
    void FocusName(unsigned int slot);

private:
    void AddLabel(QGridLayout* grid, unsigned int slot);

    std::array<ToviColorButton*, labelCount> buttons;
    std::array<QLineEdit*, labelCount> names;
};
