#include "delivery/OpenNextDataDlg.h"

#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"

#include <utility>

namespace
{
bool HasPhotoXml(CString folder)
{
    MibNormalDir(folder);
    return !folder.empty() && MibIsFileExist(folder + "PHOTO.XML");
}
} // namespace

OpenNextDataDlg::OpenNextDataDlg(CString lastFolder, CStringArray missingNames)
    : message("次のCDに入れ替えアクセスランプの消灯を待って『OK』ボタンを押してください。\n"
              "（HDDからデータを読み込む場合は、次の電子納品成果（PHOTO.XMLがあるフォルダ）を\n"
              "　指定し『OK』ボタンを押してください。）\n\n"
              "このまま『キャンセル』ボタンを押した場合、\n"
              "『リンクが切れているファイル』リスト内にあるファイルは正常に表示されません。"),
      folder(std::move(lastFolder)),
      listLabel(Format("リンクが切れているファイル　（ファイル数：%d）", missingNames.GetSize())),
      names(std::move(missingNames))
{}

bool OpenNextDataDlg::DoModal()
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return false;
    const FolderQuestion question = {"次のデータを開く", message,
                                     "PHOTO.XMLがあるフォルダを指定してください。", listLabel,
                                     names};
    while (host.userInterface->AskFolder(question, folder)) {
        if (HasPhotoXml(folder)) return true;
        host.userInterface->ShowMessage(
            "指定したフォルダ内にPHOTO."
            "XMLファイルが存在しません。\n再度、フォルダの指定を行ってくだ"
            "さい。",
            host.applicationName, MessageButtons::Ok, MessageIcon::Warning);
    }
    return false;
}
