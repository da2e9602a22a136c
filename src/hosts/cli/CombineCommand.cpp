#include "hosts/cli/Commands.h"
#include "hosts/cli/Delivery.h"
#include "hosts/cli/Json.h"
#include "hosts/cli/UserInPlace.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"

#include "delivery/MediaCombine.h"
#include "delivery/ToviEnouDataFactory.h"
#include "loading/DeliveryLocation.h"
#include "platform/host/TerminalUserInterface.h"
#include "work/WorkFolder.h"

#include <deque>
#include <iostream>

namespace
{
struct Arguments
{
    DeliveryArguments delivery;
    std::vector<std::string> next;
};

/// The user who has laid out all discs beforehand: asked for the next one, he names them in turn.
class PreparedUser : public TerminalUserInterface
{
public:
    explicit PreparedUser(std::deque<CString> discs) : folders(std::move(discs)) {}

    bool AskFolder(const FolderQuestion&, CString& folder) override
    {
        if (folders.empty()) return false;
        folder = folders.front();
        folders.pop_front();
        return true;
    }
    MessageAnswer ShowMessage(const CString& text, const CString& caption, MessageButtons buttons,
                              MessageIcon icon) override
    {
        // That all went well shows in the result.
        if (icon == MessageIcon::Information) return SafeAnswer(buttons);
        return TerminalUserInterface::ShowMessage(text, caption, buttons, icon);
    }

private:
    std::deque<CString> folders;
};

/// The folders of PHOTO.XML on the discs to come. False, with a sentence on standard error, when
/// one has none.
bool FindDiscs(const std::vector<std::string>& folders, std::deque<CString>& discs)
{
    for (const CString& folder : folders) {
        const CStringArray found = FindPhotoFolders(folder);
        if (found.GetSize() != 1) {
            Complain(WhyNoDelivery(folder, found));
            return false;
        }
        discs.push_back(found[0]);
    }
    return true;
}

int Report(ToviData& document, const CString& dataFolder)
{
    int found = 0;
    CStringArray names;
    for (ToviPhoto* photo : *document.GetPhotoDataArray()) {
        if (photo->IsExistFile()) {
            ++found;
        } else {
            photo->GetOutputFilename(names);
        }
    }
    Json missing = Json::Array();
    for (const CString& name : names) missing.Add(name);
    const int photos = document.GetTotalCountPhoto();
    const Json summary = Json::Object(
        {{"dataFolder", dataFolder}, {"photos", photos}, {"found", found}, {"missing", missing}});
    std::cout << ToText(summary) << '\n';
    if (found == photos) return ExitDone;
    Complain(Format("%d枚の写真のファイルがそろいません。足りないメディアを --next "
                    "で指定してください。",
                    photos - found));
    return ExitFailed;
}

int Run(const Arguments& arguments)
{
    std::deque<CString> discs;
    if (!FindDiscs(arguments.next, discs)) return ExitFailed;
    const OpenedDelivery delivery = OpenDelivery(arguments.delivery);
    if (!delivery.IsLoaded()) return ExitFailed;
    ToviEnouDataFactory factory;
    PreparedUser user(std::move(discs));
    const UserInPlace inPlace(user);
    if (StartsCombineArea(delivery.photoFolder)) factory.DeleteTempData();
    if (!factory.StartCombineProc(delivery.photoFolder, delivery.document.get(), true)) {
        if (!factory.IsCombineCancelled()) {
            Complain("メディアと、作業フォルダ " + SuiteFolder() +
                     " の書き込みの権限と空き容量を確かめてください。");
            return ExitFailed;
        }
        Complain("中断しました。作業フォルダにコピーしたものは消しました。");
        return ExitInterrupted;
    }
    return Report(*delivery.document, factory.GetDataFolderPath());
}
} // namespace

Command CombineCommand()
{
    const auto arguments = std::make_shared<Arguments>();
    return {.name = "combine",
            .help = "何枚かのメディアに分かれた納品データをまとめて開く",
            .options = Joined({DeliveryOptions(arguments->delivery),
                               {{.name = "--next",
                                 .help = "2枚目からのメディアのフォルダ。順に指定する",
                                 .target = &arguments->next,
                                 .valueName = "FOLDER ...",
                                 .takesMany = true}}}),
            .footer =
                "出力: {\"dataFolder\",\"photos\":枚数,\"found\":ファイルのそろった枚数,"
                "\"missing\":[足りないファイル]}\n"
                "光ディスクやUSBメモリの写真は作業フォルダにコピーし、dataFolder から開ける。",
            .run = [arguments] { return Run(*arguments); }};
}
