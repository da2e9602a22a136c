#include "hosts/cli/Records.h"

#include "platform/MibFile.h"
#include "reports/OutputPhotoFolder.h"
#include "review/RecordProblems.h"
#include "review/RecordTags.h"

CLI::Option* AddRecordOption(CLI::App& command, std::string& record)
{
    return command.add_option("--record", record, "検査状況の記録ファイル")->option_text("FILE");
}

bool LoadRecord(ToviData& document, const CString& record)
{
    int reason = noReason;
    if (record.empty() || document.LoadExamination(record.c_str(), &reason)) return true;
    Complain(WhyRecordNotLoaded(document, record, reason));
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
    Complain(WhyRecordNotSaved(record, reason));
    return reason == RecordCancelled ? ExitInterrupted : ExitFailed;
}

bool RefuseInDelivery(const CString& path, const OpenedDelivery& delivery)
{
    const CString folder = FolderOfFile(path);
    const bool isInside = MibIsInside(delivery.folder, folder) ||
                          (delivery.document && IsDeliveryFolder(*delivery.document, folder));
    if (!isInside) return false;
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
