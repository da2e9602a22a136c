#include "reports/ToviCheckStatusFileOut.h"

#include "delivery/ToviData.h"
#include "inspection/RecordProblems.h"
#include "photos/ToviPhoto.h"
#include "platform/files/DiskSpace.h"
#include "platform/files/MibFile.h"
#include "platform/files/RunFolder.h"
#include "platform/host/HostServices.h"
#include "platform/host/Interrupt.h"
#include "reports/CheckStatusCells.h"
#include "reports/CheckStatusPages.h"
#include "reports/OutputPhotoFolder.h"
#include "review/ToviLabelManager.h"
#include "work/Environment.h"
#include "work/ToviProgressDlg.h"
#include "work/WorkFolder.h"

namespace
{
constexpr const char* formName = "CHKPHOTO.XLS";
constexpr const char* proposedName = "検査結果";
constexpr const char* workFolderName = "QV-ExcelData";
constexpr std::size_t largestForm = std::size_t{16} << 20;
constexpr std::size_t largestReport = std::size_t{1} << 30;

/// For the application's profile, the filled form and what it makes of it.
constexpr std::uint64_t roomOfReport = std::uint64_t{64} << 20;

/// \p folder ends in a separator.
bool HasRoom(const CString& folder)
{
    return MibCreateDirectory(folder) &&
           WhyNotReplaceable(folder + workFolderName + ".tmp") == WriteFailure::None &&
           FreeSpace(folder) >= roomOfReport;
}

/// In the work folder or, where that is missing or full, in the one for temporary files; empty when
/// neither will do. The report is none the worse for a home folder without room.
CString SharedWorkFolder()
{
    const CString temporary = PrivateTemporaryFolder(GetEnvironment().folders.temporary);
    for (const CString& folder : {SuiteFolder(), temporary + '/'}) {
        if (folder.size() > 1 && HasRoom(folder)) return folder + workFolderName;
    }
    return {};
}

/// Makes the file \p to from the bytes of \p from.
CheckStatusOutcome Copy(const CString& from, const CString& to, std::size_t limit)
{
    const auto bytes = MibReadFile(from, limit);
    if (!bytes) return CheckStatusOutcome::NotWritten;
    WriteFailure failure = WriteFailure::None;
    return WriteFileAtomically(to, *bytes, &failure) ? CheckStatusOutcome::Written
                                                     : OutcomeOf(failure);
}

void Tell(CheckStatusOutcome outcome, const CString& caption)
{
    const bool serious = outcome != CheckStatusOutcome::Written &&
                         outcome != CheckStatusOutcome::Cancelled &&
                         outcome != CheckStatusOutcome::NotStarted;
    GetHostServices().userInterface->ShowMessage(MessageOf(outcome), caption, MessageButtons::Ok,
                                                 serious ? MessageIcon::Warning
                                                         : MessageIcon::Information);
}
} // namespace

ToviCheckStatusFileOut::ToviCheckStatusFileOut(ToviData& document, const ToviLabelManager& labels,
                                               Starter starter)
    : data(document), labelManager(labels), start(std::move(starter))
{}

bool ToviCheckStatusFileOut::FileOut(const CString& caption, CString* place)
{
    CString output = GetEnvironment().folders.documents + '/' + proposedName;
    CString& chosen = place != nullptr ? *place : output;
    const CString proposed = std::exchange(chosen, "");
    CheckStatusOutcome outcome = CheckStatusOutcome::NoWorkFolder;
    if (const RunFolder folder(SharedWorkFolder()); !folder.Path().empty()) {
        bool cancelled = false;
        const auto application = Start(folder.Path(), caption, cancelled);
        outcome = cancelled ? CheckStatusOutcome::Cancelled : CheckStatusOutcome::NotStarted;
        if (application) {
            chosen = ChooseOutput(proposed, caption);
            if (chosen.empty()) return false;
            outcome = Write(*application, folder.Path(), chosen, caption);
        }
    }
    Tell(outcome, caption);
    if (outcome != CheckStatusOutcome::Written) return false;
    GetHostServices().userInterface->OpenFile(chosen);
    return true;
}

CheckStatusOutcome ToviCheckStatusFileOut::FileOut(const CString& caption, const CString& path)
{
    // What is to be cleaned up is, before an interrupt may end the program.
    const InterruptListener listener;
    const RunFolder folder(SharedWorkFolder());
    if (folder.Path().empty()) return CheckStatusOutcome::NoWorkFolder;
    bool cancelled = false;
    auto application = Start(folder.Path(), caption, cancelled);
    if (!application) {
        return cancelled ? CheckStatusOutcome::Cancelled : CheckStatusOutcome::NotStarted;
    }
    const CheckStatusOutcome outcome = Write(*application, folder.Path(), path, caption);
    application.reset();
    // The report is there: an interrupt that came since is too late.
    if (outcome == CheckStatusOutcome::Written) WasInterrupted();
    return outcome;
}

std::unique_ptr<SpreadsheetApplication>
ToviCheckStatusFileOut::Start(const CString& folder, const CString& caption, bool& cancelled) const
{
    ToviProgressDlg progress(false);
    progress.Begin(1);
    progress.SetCaption(caption.c_str());
    progress.SetMessage("表計算プログラムを起動しています...");
    return start(folder, [&] {
        cancelled = cancelled || progress.GetCancel();
        return cancelled;
    });
}

CString ToviCheckStatusFileOut::ChooseOutput(const CString& proposed, const CString& caption) const
{
    SaveQuestion question = {proposed.substr(0, proposed.rfind('/')), MibGetFileName(proposed),
                             "xls", "EXCELファイル(*.xls)", "*.xls"};
    question.otherKinds = {{"xlsx", "EXCELブック(*.xlsx)", "*.xlsx"},
                           {"ods", "OpenDocument(*.ods)", "*.ods"},
                           {"pdf", "PDF(*.pdf)", "*.pdf"}};
    UserInterface& user = *GetHostServices().userInterface;
    for (CString output; user.ChooseSaveFile(question, output);) {
        if (!IsDeliveryFolder(data, FolderOfFile(output))) return output;
        user.ShowMessage(
            "納品データのフォルダには保存できません。\n別のフォルダを指定してください。", caption,
            MessageButtons::Ok, MessageIcon::Information);
    }
    return {};
}

CheckStatusOutcome ToviCheckStatusFileOut::Write(SpreadsheetApplication& application,
                                                 const CString& folder, const CString& output,
                                                 const CString& caption) const
{
    const CString form = MibProgramPath() + formName;
    if (!MibIsFileExist(form)) return CheckStatusOutcome::NoForm;
    const CString copy = folder + '/' + formName;
    if (Copy(form, copy, largestForm) != CheckStatusOutcome::Written) {
        return CheckStatusOutcome::NoWorkFolder;
    }
    const SpreadsheetFormat format = FormatOfReport(output);
    const int pages = PageSizes(data.GetCurrentPhotoCount()).GetSize();
    if (!FitsSheet(pages, format)) return CheckStatusOutcome::TooManyPhotos;
    CString outputFolder = MibAbsolutePath(output);
    MibParentDir(outputFolder);
    if (IsDeliveryFolder(data, outputFolder)) return CheckStatusOutcome::InDelivery;
    if (IsOpenInOffice(output)) return CheckStatusOutcome::OutputOpen;
    if (const WriteFailure failure = WhyNotReplaceable(output); failure != WriteFailure::None) {
        return OutcomeOf(failure);
    }
    const CString filled = folder + "/report";
    const CheckStatusOutcome outcome = Fill(application, copy, filled, format, caption);
    // An interrupt that hit the office, or that came after the last time somebody asked: from here
    // on the old file is gone.
    if (WasInterrupted()) return CheckStatusOutcome::Cancelled;
    if (outcome != CheckStatusOutcome::Written) return outcome;
    return Copy(filled, output, largestReport);
}

CheckStatusOutcome ToviCheckStatusFileOut::Fill(SpreadsheetApplication& application,
                                                const CString& form, const CString& filled,
                                                SpreadsheetFormat format,
                                                const CString& caption) const
{
    const int count = data.GetCurrentPhotoCount();
    ToviProgressDlg progress(true);
    progress.Create(nullptr);
    progress.SetCaption(caption.c_str());
    progress.SetRange(0, count);
    progress.SetStep(1);
    progress.SetPos(0);
    progress.SetMessage("様式を準備しています...");
    progress.Show();
    if (progress.GetCancel()) return CheckStatusOutcome::Cancelled;
    const auto book = application.Open(form);
    const int pages = PageSizes(count).GetSize();
    if (!book || !book->RepeatRows(rowsPerPage, CheckStatusCells::columns, pages)) {
        return CheckStatusOutcome::ApplicationFailed;
    }
    const CheckStatusOutcome outcome = WritePages(*book, progress);
    if (outcome != CheckStatusOutcome::Written) return outcome;
    progress.SetMessage("保存しています...");
    if (progress.GetCancel()) return CheckStatusOutcome::Cancelled;
    return book->Save(filled, format) ? CheckStatusOutcome::Written
                                      : CheckStatusOutcome::ApplicationFailed;
}

CheckStatusOutcome ToviCheckStatusFileOut::WritePages(SpreadsheetBook& book,
                                                      ToviProgressDlg& progress) const
{
    const int count = data.GetCurrentPhotoCount();
    const CheckStatusCells cells(data, labelManager);
    int page = 0;
    int position = 0;
    for (const int size : PageSizes(count)) {
        std::vector<std::vector<CString>> rows;
        for (const int end = position + size; position < end; ++position) {
            rows.push_back(cells.Of(*data.GetPhoto(position)));
            progress.SetMessage("Excelデータ出力中　", position + 1, count);
            if (progress.GetCancel()) return CheckStatusOutcome::Cancelled;
            progress.StepIt();
        }
        if (!rows.empty() && !book.WriteTexts(FirstPhotoRow(page), rows)) {
            return CheckStatusOutcome::ApplicationFailed;
        }
        ++page;
    }
    return CheckStatusOutcome::Written;
}

bool ToviData::FileOutCheckStatus(const CString& caption, CString* place)
{
    return ToviCheckStatusFileOut(*this, *GetLabelManager()).FileOut(caption, place);
}

CheckStatusOutcome ToviData::FileOutCheckStatus(const CString& caption, const CString& path)
{
    return ToviCheckStatusFileOut(*this, *GetLabelManager()).FileOut(caption, path);
}
