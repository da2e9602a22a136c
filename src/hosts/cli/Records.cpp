#include "hosts/cli/Records.h"

#include "platform/MibFile.h"
#include "review/RecordTags.h"

namespace
{
CString FolderOf(const CString& path)
{
    return path.find('/') == CString::npos ? "." : path.substr(0, path.rfind('/') + 1);
}

CString WhyNotLoaded(const ToviData& document, const CString& record, int reason)
{
    if (!MibIsFileExist(record)) {
        return "記録ファイル " + record + " がありません。ファイルの場所と名前を確かめてください。";
    }
    if (reason == RecordCountDiffers) {
        return record + Format(" は検査状況の記録として読めないか、写真の枚数がこの納品データ（%"
                               "d枚）と違います。"
                               "この納品データの記録を指定してください。",
                               document.GetTotalCountPhoto());
    }
    return record + " に写真ごとの状況がありません。別の記録ファイルを指定してください。";
}

CString WhyNotSaved(const CString& record, int reason)
{
    if (!MibIsFolderExist(FolderOf(record))) {
        return FolderOf(record) + " というフォルダがありません。保存する場所を確かめてください。";
    }
    switch (reason) {
    case RecordReadOnly:
        return record + " は読み取り専用です。別の名前で保存するか、書き込めるようにしてください。";
    case RecordNoSpace:
        return record + " を保存する空き容量がありません。不要なファイルを削除するか、別の場所に保"
                        "存してください。";
    case RecordCancelled:
        return "中断しました。" + record + " は元のままです。";
    default:
        return record + " に書き込めません。書き込みの権限と空き容量を確かめてください。";
    }
}
} // namespace

CLI::Option* AddRecordOption(CLI::App& command, std::string& record)
{
    return command.add_option("--record", record, "検査状況の記録ファイル")->option_text("FILE");
}

bool LoadRecord(ToviData& document, const CString& record)
{
    int reason = noReason;
    if (record.empty() || document.LoadExamination(record.c_str(), &reason)) return true;
    Complain(WhyNotLoaded(document, record, reason));
    return false;
}

int OpenInspection(const DeliveryArguments& arguments, const CString& record, TreeTypeArgument tree,
                   OpenedDelivery& delivery)
{
    delivery = OpenDelivery(arguments, tree);
    if (!delivery.IsLoaded()) return ExitFailed;
    if (RefuseInDelivery(record, delivery)) return ExitWrongUsage;
    if (MibIsFileExist(record) && !LoadRecord(*delivery.document, record)) return ExitFailed;
    return ExitDone;
}

int SaveRecord(ToviData& document, const CString& record)
{
    int reason = noReason;
    const bool saved = document.SaveExamination(record.c_str(), nullptr, &reason);
    return TellSaved(saved, record, reason);
}

int TellSaved(bool saved, const CString& record, int reason)
{
    if (saved) return ExitDone;
    Complain(WhyNotSaved(record, reason));
    return reason == RecordCancelled ? ExitInterrupted : ExitFailed;
}

bool RefuseInDelivery(const CString& path, const OpenedDelivery& delivery)
{
    if (!MibIsInside(delivery.folder, FolderOf(path))) return false;
    Complain("納品データのフォルダには書き込みません。" + path +
             " の代わりに別のフォルダを指定してください。");
    return true;
}

Json LabelsOf(const ToviPhoto& photo)
{
    Json slots = Json::array();
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (photo.IsLabelPasted(slot)) slots.push_back(slot);
    }
    return slots;
}

Json ReviewOf(const ToviPhoto& photo, int index)
{
    return {{"index", index}, {"labels", LabelsOf(photo)}, {"comment", photo.GetComment()}};
}
