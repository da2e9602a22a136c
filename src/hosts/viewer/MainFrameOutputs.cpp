// The main window's commands on what leaves the program, and on deliveries that come on discs.

#include "delivery/IndexPage.h"
#include "hosts/viewer/DeliveryChoice.h"
#include "hosts/viewer/FrameState.h"
#include "hosts/viewer/MainFrame.h"
#include "hosts/viewer/SlideShow.h"
#include "inspection/RecordProblems.h"
#include "photos/ToviPhoto.h"
#include "platform/host/HostServices.h"
#include "platform/text/QtText.h"
#include "reports/CorrectionSave.h"
#include "reports/PhotoOutput.h"
#include "review/RecordName.h"

#include <QStatusBar>

namespace
{
constexpr const char* reportFolderEntry = "ReportFolder";
} // namespace

void MainFrame::ConnectOutputs()
{
    const auto on = [this](FrameCommand command, auto operation) {
        connect(actions[command], &QAction::triggered, this, operation);
    };
    on(FrameCommand::OpenDiscs, [this] { ChooseDiscs(); });
    on(FrameCommand::WriteReport, [this] { MainFrame::WriteReport(); });
    on(FrameCommand::SavePhoto, [this] { MainFrame::SavePhoto(); });
    on(FrameCommand::SaveShownPhotos, [this] { MainFrame::SaveShownPhotos(); });
    on(FrameCommand::ShowIndex, [this] { MainFrame::ShowIndex(); });
}

bool MainFrame::OpenDiscs(const CString& path)
{
    CString chosen = path;
    if (!AskToSave() || !ChooseAmongDeliveries(chosen)) return false;
    slideShow->End();
    return ShowOpened(document.OpenDiscs(chosen));
}

void MainFrame::ChooseDiscs()
{
    CString folder = FrameState::FolderToStartIn(FrameState::deliveryFolder);
    if (GetHostServices().userInterface->ChooseFolder(folder, "1枚目のメディアを選んでください",
                                                      FolderChooserStyle::Plain)) {
        OpenDiscs(folder);
    }
}

void MainFrame::WriteReport()
{
    CString path =
        ProposedReportPath(FrameState::FolderToStartIn(reportFolderEntry), document.Title());
    const bool written = document.Data()->FileOutCheckStatus("検査結果の出力", &path);
    if (!path.empty()) FrameState::SetLastFolder(reportFolderEntry, FolderOfFile(path));
    if (written) statusBar()->showMessage(QtText(path + " に検査結果を保存しました。"));
}

void MainFrame::SavePhoto()
{
    ToviData& shown = *document.Data();
    CorrectedPhoto selected;
    selected.photo = shown.GetPhoto(shown.GetSelectCurIndex());
    CorrectionSave(shown, CorrectionSave::Window::Image).Run(selected);
}

void MainFrame::SaveShownPhotos()
{
    OutputShownPhotos(*document.Data());
}

void MainFrame::ShowIndex()
{
    const IndexPage page = MakeIndexPage(*document.Data());
    if (!page.problem.empty()) {
        Tell(page.problem);
    } else if (!GetHostServices().userInterface->OpenFile(page.path)) {
        Tell("ブラウザが見つかりません。次のファイルをブラウザで開いてください。\n" + page.path);
    } else {
        statusBar()->showMessage(QStringLiteral("工事の概要をブラウザで開きました。"), 5000);
    }
}
