#include "inspection/RecordProblems.h"

#include "delivery/ToviData.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/MibFile.h"
#include "review/ToviXmlLoadManager.h"

namespace
{
CString NameOf(const LockHolder& holder)
{
    if (holder.program.empty()) return "別のプログラム";
    return holder.program + "（プロセス番号 " + holder.process + "、利用者 " + holder.user +
           "、コンピュータ " + holder.host + "）";
}
} // namespace

CString FolderOfFile(const CString& path)
{
    return path.find('/') == CString::npos ? "." : path.substr(0, path.rfind('/') + 1);
}

CString WhyRecordNotLoaded(ToviData& document, const CString& record, int reason)
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
    if (reason == RecordOtherDelivery) {
        return RecordIsOther(document, record) + "この納品データの記録を指定してください。";
    }
    return record + " に写真ごとの状況がありません。別の記録ファイルを指定してください。";
}

CString RecordIsOther(ToviData& document, const CString& record)
{
    const RecordOrigin origin = ToviXmlLoadManager(record.c_str(), nullptr).Origin();
    return record + " は別の納品データの検査状況のようです。" +
           origin.DifferenceFrom(document.GetRecordOrigin());
}

CString WhyRecordNotSaved(const CString& record, int reason)
{
    switch (reason) {
    case RecordReadOnly:
        return record + " は読み取り専用です。別の名前で保存するか、書き込めるようにしてください。";
    case RecordNoSpace:
        // A folder that isn't there has no room either.
        return WhyNotReplaceable(record) == WriteFailure::None
                   ? WhyNotWritten(record, WriteFailure::NoSpace)
                   : WhyNotReplaced(record);
    case RecordCancelled:
        return "中断しました。" + record + " は元のままです。";
    default:
        return WhyNotReplaced(record);
    }
}

CString WhyRecordHeld(const CString& record, const LockHolder& holder)
{
    return record + " は " + NameOf(holder) +
           "が使っているため、保存できません。それが終わってからやり直してください。";
}

CString WhyRecordChanged(const CString& record)
{
    return record + " は読み込んだ後にほかのプログラムで変更されたため、保存していません。もう一度"
                    "やり直してください。";
}

CString RecordIsHeld(const CString& record, const LockHolder& holder)
{
    return MibGetFileName(record) + " が空くのを待っています。使っているのは " + NameOf(holder);
}
