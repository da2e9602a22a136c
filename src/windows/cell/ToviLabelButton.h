#pragma once

#include "platform/text/Text.h"

#include <QPushButton>

/// The button of one label on a name plate. It is down, with a picture in colour, where the label
/// is pasted; a press flips it.
class ToviLabelButton : public QPushButton
{
    Q_OBJECT

public:
    /// \p slot is 0 to 5.
    ToviLabelButton(unsigned int slot, QWidget* parent);

    void SetLabelName(const CString& name);
    bool IsPressed() const { return isChecked(); }
    void SetPressed(bool pressed);

signals:
    /// The user has flipped the button of \p label. In slide mode that of the comment refuses.
    void Flipped(int label);

protected:
    /// A press flips the button only where it isn't refused.
    void nextCheckState() override {}

private:
    void OnPressed();

    unsigned int label;
    QIcon iconOff;
    QIcon iconOn;
};
