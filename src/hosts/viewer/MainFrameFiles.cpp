// The main window's commands on files: opening deliveries and records, saving, closing.

#include "hosts/viewer/DeliveryChoice.h"
#include "hosts/viewer/FrameLabels.h"
#include "hosts/viewer/FrameSession.h"
#include "hosts/viewer/FrameState.h"
#include "hosts/viewer/MainFrame.h"
#include "hosts/viewer/RecentFacts.h"
#include "hosts/viewer/SampleDelivery.h"
#include "hosts/viewer/SlideShow.h"
#include "hosts/viewer/StartPage.h"
#include "inspection/RecordProblems.h"
#include "kinds/DeliveryFamilies.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "platform/text/QtText.h"
#include "review/RecordName.h"
#include "windows/dialogs/FileDialog.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/trees/ToviFolderTreePanel.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>

namespace
{
constexpr const char* recordFolderEntry = "RecordFolder";

/// Shows that the program is at work.
struct WaitCursor
{
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

QStringList RecordFilters()
{
    return {QStringLiteral("検査状況 (*.xml)"), QStringLiteral("すべてのファイル (*)")};
}
} // namespace

bool MainFrame::OpenDelivery(const CString& path, std::optional<PhotoXMLType> family,
                             const CString& record)
{
    CString chosen = path;
    if (!AskToSave() || !ChooseAmongDeliveries(chosen)) return false;
    slideShow->End();
    if (!ShowOpened(document.Open(chosen, family, record))) return false;
    const CString folder = RecentFolder(document);
    FrameState::AddRecentDelivery(folder);
    KeepRecentFacts(document);
    FrameState::SetOpenDelivery(folder);
    FrameState::SetLastFolder(FrameState::deliveryFolder, FolderOfFile(folder));
    FillRecent();
    return true;
}

void MainFrame::OpenSample()
{
    const CString folder = [] {
        const WaitCursor wait;
        return SampleDelivery::Make();
    }();
    if (folder.empty()) {
        startPage->ShowProblem(
            "見本の納品データを作れませんでした。ホームフォルダの空き容量を確かめてください。");
    } else {
        OpenDelivery(folder, std::nullopt);
    }
}

void MainFrame::OpenLast()
{
    const CString folder = FrameState::OpenDelivery();
    if (FrameState::OpensLast() && !folder.empty()) OpenDelivery(folder, std::nullopt);
}

bool MainFrame::ShowOpened(const CString& problem)
{
    startPage->ShowProblem(problem);
    // Of a new delivery everything is shown; a switch of the tab tells the document so.
    if (problem.empty()) trees->setCurrentIndex(trees->indexOf(folderTree.get()));
    // While another delivery stays open, the page that would tell is out of sight.
    if (!problem.empty() && document.Data() != nullptr) Tell(problem);
    Refresh();
    if (problem.empty()) session->Restore();
    if (problem.empty()) photoPanel->setFocus();
    if (problem.empty() && !document.Notice().empty()) Tell(document.Notice());
    return problem.empty();
}

void MainFrame::ChooseDelivery(std::optional<PhotoXMLType> family)
{
    CString folder = FrameState::FolderToStartIn(FrameState::deliveryFolder);
    UserInterface& user = *GetHostServices().userInterface;
    if (user.ChooseFolder(folder,
                          "PHOTO.XML のあるフォルダ、またはその上のフォルダを選んでください",
                          FolderChooserStyle::Plain)) {
        OpenDelivery(folder, family);
    }
}

void MainFrame::ChooseDeliveryWithFamily()
{
    Choice choice;
    choice.title = "要領を指定して開く";
    choice.notes.Add("納品データの要領の系統を選んでください。");
    for (const DeliveryFamily& family : deliveryFamilies) choice.options.Add({family.name, ""});
    int family = PhotoXMLMlit;
    if (!GetHostServices().userInterface->Choose(choice, family)) return;
    ChooseDelivery(static_cast<PhotoXMLType>(family));
}

bool MainFrame::OpenRecord(const CString& path)
{
    CString problem;
    const bool loaded = document.LoadRecord(path, problem);
    if (!problem.empty()) Tell(problem);
    Refresh();
    return loaded;
}

void MainFrame::ChooseRecord()
{
    if (!AskToSave()) return;
    FileDialog dialog(FileDialog::Use::OpenFile, QStringLiteral("検査状況を開く"),
                      QtText(FrameState::FolderToStartIn(recordFolderEntry)), this);
    dialog.setNameFilters(RecordFilters());
    const QString path = dialog.Ask();
    if (path.isEmpty()) return;
    FrameState::SetLastFolder(recordFolderEntry, FolderOfFile(FromQtText(path)));
    OpenRecord(FromQtText(path));
}

bool MainFrame::Save()
{
    return document.RecordPath().empty() ? SaveAs() : SaveTo(document.RecordPath());
}

bool MainFrame::SaveAs()
{
    const CString proposed =
        document.RecordPath().empty()
            ? ProposedRecordPath(FrameState::FolderToStartIn(recordFolderEntry), document.Title())
            : document.RecordPath();
    FileDialog dialog(FileDialog::Use::SaveFile, QStringLiteral("検査状況を保存"),
                      QtText(FolderOfFile(proposed)), this);
    dialog.setNameFilters(RecordFilters());
    dialog.setDefaultSuffix(QStringLiteral("xml"));
    dialog.selectFile(QtText(MibGetFileName(proposed)));
    const CString path = FromQtText(dialog.Ask());
    if (path.empty()) return false;
    FrameState::SetLastFolder(recordFolderEntry, FolderOfFile(path));
    return SaveTo(path);
}

bool MainFrame::SaveTo(const CString& path)
{
    labels->FinishComment();
    CString problem;
    const bool saved = document.SaveRecord(path, problem);
    if (!problem.empty()) Tell(problem);
    Refresh();
    return saved;
}

void MainFrame::CloseDelivery()
{
    if (!AskToSave()) return;
    slideShow->End();
    document.Close();
    FrameState::SetOpenDelivery({});
    Refresh();
    FillRecent();
}

bool MainFrame::AskToSave()
{
    labels->FinishComment();
    if (!document.HasUnsavedWork()) return true;
    QMessageBox box(QMessageBox::Question, QtText(GetHostServices().applicationName),
                    QStringLiteral("検査状況が保存されていません。保存しますか？"),
                    QMessageBox::NoButton, this);
    if (document.History()->Writing().problem.empty()) {
        box.setInformativeText(
            QStringLiteral("保存しなくても、次に開くときに続きから始められます。"));
    }
    const auto* save = box.addButton(QStringLiteral("保存する(&S)"), QMessageBox::AcceptRole);
    const auto* discard =
        box.addButton(QStringLiteral("保存しない(&N)"), QMessageBox::DestructiveRole);
    auto* cancel = box.addButton(QStringLiteral("キャンセル"), QMessageBox::RejectRole);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == save) return Save();
    return box.clickedButton() == discard;
}
