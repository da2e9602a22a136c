#include "reports/CheckStatusOutcome.h"

#include "platform/files/MibFile.h"

#include <utility>

CString MessageOf(CheckStatusOutcome outcome)
{
    switch (outcome) {
    case CheckStatusOutcome::Written:
        return "EXCELファイルへの書き込みが正常に終了しました。";
    case CheckStatusOutcome::Cancelled:
        return "EXCELファイルへの書き込みをキャンセルしました。";
    case CheckStatusOutcome::NotStarted:
        return "EXCELが起動できません。インストールされていないか、正しくセットアップされていない"
               "可能性があります。";
    default:
        return "EXCELファイルへの書き込みに失敗しました。";
    }
}

CheckStatusOutcome OutcomeOf(WriteFailure failure)
{
    switch (failure) {
    case WriteFailure::None:
        return CheckStatusOutcome::Written;
    case WriteFailure::NoSpace:
        return CheckStatusOutcome::NoSpace;
    case WriteFailure::NotWritable:
    case WriteFailure::NotAFile:
        return CheckStatusOutcome::OutputReadOnly;
    case WriteFailure::InDelivery:
        return CheckStatusOutcome::InDelivery;
    case WriteFailure::NoSource:
    case WriteFailure::NoFolder:
    case WriteFailure::Other:
        break;
    }
    return CheckStatusOutcome::NotWritten;
}

SpreadsheetFormat FormatOfReport(const CString& path)
{
    constexpr std::pair<const char*, SpreadsheetFormat> endings[] = {
        {".xlsx", SpreadsheetFormat::Xlsx},
        {".ods", SpreadsheetFormat::Ods},
        {".pdf", SpreadsheetFormat::Pdf}};
    const CString ending = MibGetExt(path);
    for (const auto& [known, format] : endings) {
        if (EqualNoCase(ending, known)) return format;
    }
    return SpreadsheetFormat::Xls;
}
