#include "windows/panel/ToviPanel.h"

#include "platform/controls/WindowId.h"

bool ToviPanel::Create(QWidget* parent, unsigned int id)
{
    setParent(parent);
    SetWindowId(this, static_cast<int>(id));
    show();
    return true;
}

void ToviPanel::OnUpdate(CWnd*, ToviData::UpdateHint hint, CObject*)
{
    if (hint == ToviData::HintDetach) Detach();
}

ToviData* ToviPanel::Attach(ToviData* newData)
{
    ToviData* const old = data;
    if (old != nullptr && old != newData) OnPreDetachData();
    data = newData;
    OnPostAttachData();
    return old;
}

ToviData* ToviPanel::Detach()
{
    ToviData* const old = data;
    if (old != nullptr) OnPreDetachData();
    data = nullptr;
    OnPostAttachData();
    return old;
}
