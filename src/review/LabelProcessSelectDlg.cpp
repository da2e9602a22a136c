#include "review/LabelProcessSelectDlg.h"

#include "platform/host/HostServices.h"
#include "review/LabelCorrection.h"

bool LabelProcessSelectDlg::DoModal()
{
    UserInterface* user = GetHostServices().userInterface;
    if (user == nullptr) return false;
    const Choice choice = {
        labelCorrectionTitle,
        {"選択したツリー以下にある全ての写真に対して、下記の処理を行います。",
         "※　抽出状態の場合は、抽出写真に対してのみ処理を行います。"},
        {{"OK付箋を貼る。",
          "NG付箋の貼られていない全ての写真に対しOK付箋を貼ります。\n" + PasteOkConsequence(scope)},
         {"OK・NG付箋を削除し未検査状態にする。",
          "OK、NGの付箋を削除します。\n" + RemoveChecksConsequence(scope)},
         {"全ての付箋を削除する。",
          "OK、NG、任意設定の付箋全てを削除します。\nまた、コメントのクリアも行います。\n" +
              RemoveAllConsequence(scope)}}};
    return user->Choose(choice, action);
}
