#include "review/SlideMode.h"

#include "platform/host/HostServices.h"

namespace
{
bool slideMode = false;

const char* TextOf(SlideModeRefusal what)
{
    switch (what) {
    case SlideModeRefusal::RightClick:
        return "スライドモード中は右クリック操作はできません。";
    case SlideModeRefusal::EditComment:
        return "スライドモード中はコメントの編集ができません。";
    case SlideModeRefusal::SavePhoto:
        break;
    }
    return "スライドモード中は写真の保存ができません。";
}
} // namespace

void SetSlideMode(bool on)
{
    slideMode = on;
}

bool IsSlideMode()
{
    return slideMode;
}

bool RefuseInSlideMode(SlideModeRefusal what)
{
    if (!slideMode) return false;
    const HostServices& host = GetHostServices();
    if (host.userInterface != nullptr) {
        host.userInterface->ShowMessage(TextOf(what), host.applicationName, MessageButtons::Ok,
                                        MessageIcon::Information);
    }
    return true;
}
