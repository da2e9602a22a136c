#include "windows/cell/ToviLabelButton.h"

#include "photos/LabelSlots.h"
#include "platform/controls/ToolTipText.h"
#include "platform/controls/WindowId.h"
#include "review/SlideMode.h"
#include "windows/cell/CellChild.h"
#include "windows/keys/KeySet.h"
#include "windows/pictures/Pictures.h"

static constexpr int firstIcon = 501;
static constexpr int iconSide = 18;

ToviLabelButton::ToviLabelButton(unsigned int slot, QWidget* parent)
    : QPushButton(parent), label(slot)
{
    const int iconNumber = firstIcon + 2 * static_cast<int>(label);
    iconOff = PictureIcons(iconNumber).front();
    iconOn = PictureIcons(iconNumber + 1).front();
    SetWindowId(this, idFirstLabel + static_cast<int>(label));
    setCheckable(true);
    setAutoDefault(false);
    // A click leaves the focus to the photograph, where the space bar goes on to the next one.
    setFocusPolicy(Qt::TabFocus);
    setIconSize({iconSide, iconSide});
    SetPressed(false);
    connect(this, &QPushButton::clicked, this, &ToviLabelButton::OnPressed);
}

void ToviLabelButton::SetLabelName(const CString& name)
{
    setAccessibleName(QtText(name));
    setToolTip(ToolTipText(FromQtText(WithKey(QtText(name), LabelCommandOf(label)))));
}

void ToviLabelButton::SetPressed(bool pressed)
{
    setChecked(pressed);
    setIcon(pressed ? iconOn : iconOff);
}

void ToviLabelButton::OnPressed()
{
    if (label == LabelComment && RefuseInSlideMode(SlideModeRefusal::EditComment)) return;
    SetPressed(!IsPressed());
    emit Flipped(static_cast<int>(label));
}
