#include "reports/ToviSelectOutputPhotoDlg.h"

#include "platform/host/HostServices.h"

bool ToviSelectOutputPhotoDlg::DoModal()
{
    UserInterface* const user = GetHostServices().userInterface;
    const Choice choice = {"写真保存",
                           {"明るさ・回転情報が変更されています。"},
                           {{"変更を反映して保存", "変更を反映した写真は原本ではありません。"},
                            {"元の写真を保存", ""}},
                           "保存",
                           true};
    int option = 0;
    if (user == nullptr || !user->Choose(choice, option)) return false;
    workedPhoto = option == 0;
    return true;
}
