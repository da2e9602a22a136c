#include "hosts/cli/Records.h"

#include "inspection/RecordProblems.h"
#include "photos/ToviPhoto.h"
#include "platform/files/DeliveredFolder.h"
#include "platform/files/FileVersion.h"
#include "platform/files/MibFile.h"
#include "platform/files/WriteFailure.h"
#include "reports/OutputPhotoFolder.h"
#include "review/RecordTags.h"

Options RecordOptions(RecordArguments& record, Need need)
{
    return {{.name = "--record",
             .help = "検査状況の記録ファイル",
             .target = &record.path,
             .valueName = "FILE",
             .need = need},
            ForceOption(record)};
}

Option ForceOption(RecordArguments& record)
{
    return {"--force", "別の納品データの記録のようでも読み込む", &record.force};
}

bool LoadRecord(ToviData& document, const RecordArguments& record)
{
    const auto taken =
        record.force ? ToviData::RecordsOfAnyDelivery : ToviData::RecordsOfThisDelivery;
    int reason = noReason;
    if (record.path.empty() || document.LoadExamination(record.path.c_str(), &reason, taken)) {
        return true;
    }
    const CString why = WhyRecordNotLoaded(document, record.path, reason);
    Complain(reason == RecordOtherDelivery ? why + "それでも読み込むなら --force を付けてください。"
                                           : why);
    return false;
}

int Open(Inspection& inspection, const DeliveryArguments& arguments, TreeTypeArgument tree)
{
    OpenedDelivery& delivery = inspection.delivery;
    delivery = OpenDelivery(arguments, tree);
    if (!delivery.IsLoaded()) return ExitFailed;
    const CString& record = inspection.record.path;
    const CString& file = inspection.hold.Target();
    if (RefuseInDelivery(record, delivery) || RefuseInDelivery(file, delivery)) {
        return ExitWrongUsage;
    }
    if (const int taken = Take(inspection.hold, record); taken != ExitDone) return taken;
    inspection.version = FileVersion(file);
    if (MibIsFileExist(file) && !LoadRecord(*delivery.document, inspection.record)) {
        return ExitFailed;
    }
    return ExitDone;
}

int Save(Inspection& inspection)
{
    const CString& file = inspection.hold.Target();
    if (FileVersion(file) != inspection.version) {
        Complain(WhyRecordChanged(inspection.record.path));
        return ExitFailed;
    }
    int reason = noReason;
    const bool saved =
        inspection.delivery.document->SaveExamination(file.c_str(), nullptr, &reason);
    inspection.hold.Release();
    return TellSaved(saved, inspection.record.path, reason);
}

int Take(RecordHold& hold, const CString& path)
{
    switch (hold.Take()) {
    case RecordHold::Outcome::Others:
        Complain(WhyRecordHeld(path, hold.Holder()));
        return ExitFailed;
    case RecordHold::Outcome::Cancelled:
        return TellSaved(false, path, RecordCancelled);
    case RecordHold::Outcome::Held:
        break;
    }
    return ExitDone;
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
    const bool isInside = IsInDelivery(path) || MibIsInside(delivery.folder, folder) ||
                          (delivery.document && IsDeliveryFolder(*delivery.document, folder));
    if (!isInside) return false;
    Complain(WhyNotWritten(path, WriteFailure::InDelivery));
    return true;
}

Json LabelsOf(const ToviPhoto& photo)
{
    Json slots = Json::Array();
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (photo.IsLabelPasted(slot)) slots.Add(slot);
    }
    return slots;
}

Json ReviewOf(const ToviPhoto& photo, int index)
{
    return Json::Object(
        {{"index", index}, {"labels", LabelsOf(photo)}, {"comment", photo.GetComment()}});
}
