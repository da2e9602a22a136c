#pragma once

#include "platform/controls/WenDialog.h"
#include "platform/host/UserInterface.h"

class QButtonGroup;

/// Asks a Choice with one radio button for each option. キャンセル is what Enter presses, so that
/// no long work starts by mistake.
class ChoiceDialog : public WenDialog
{
    Q_OBJECT

public:
    ChoiceDialog(const Choice& choice, QWidget* parent);

    /// The index of the option that is chosen, the first at the start.
    int GetOption() const;

private:
    QButtonGroup* options;
};
