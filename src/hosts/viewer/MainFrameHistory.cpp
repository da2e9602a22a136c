// The main window's commands on what was done to the labels and comments.

#include "hosts/viewer/FrameExtraction.h"
#include "hosts/viewer/MainFrame.h"
#include "platform/text/QtText.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/trees/ToviFolderTreePanel.h"

#include <QStatusBar>
#include <QTabWidget>

#include <algorithm>

namespace
{
constexpr int messageTime = 8000;

/// The text of a command that does \p what to a change in \p words, which may be none.
QString CommandText(const QString& what, const QString& mnemonic, const CString& words)
{
    if (words.empty()) return what + mnemonic;
    QString text = QtText(words);
    return what + QStringLiteral(": ") + text.replace(QLatin1Char('&'), QStringLiteral("&&")) +
           mnemonic;
}

bool IsBeneath(const ToviNode& node, int photo)
{
    CArray<int> beneath;
    node.GetAllUnder(beneath);
    return std::find(beneath.begin(), beneath.end(), photo) != beneath.end();
}
} // namespace

void MainFrame::ConnectHistory()
{
    connect(actions[FrameCommand::Undo], &QAction::triggered, this, &MainFrame::Undo);
    connect(actions[FrameCommand::Redo], &QAction::triggered, this, &MainFrame::Redo);
    // At once: the key that follows a label's may be the one that takes it back.
    connect(&document, &ViewerDocument::Updated, this, &MainFrame::ShowHistory);
}

void MainFrame::ShowHistory()
{
    const InspectionHistory* const history = document.History();
    const CString undo = history == nullptr ? CString() : history->UndoWords();
    const CString redo = history == nullptr ? CString() : history->RedoWords();
    actions[FrameCommand::Undo]->setEnabled(!undo.empty());
    actions[FrameCommand::Redo]->setEnabled(!redo.empty());
    actions[FrameCommand::Undo]->setText(
        CommandText(QStringLiteral("元に戻す"), QStringLiteral("(&U)"), undo));
    actions[FrameCommand::Redo]->setText(
        CommandText(QStringLiteral("やり直す"), QStringLiteral("(&R)"), redo));
}

void MainFrame::ShowAccess()
{
    using enum FrameCommand;
    const InspectionHistory* const history = document.History();
    if (history == nullptr || history->GetAccess() == InspectionHistory::Access::Change) return;
    for (const FrameCommand command : {OpenRecord, CommentDialog, FrameCommand::CorrectLabels}) {
        actions[command]->setEnabled(false);
    }
    for (const FrameCommand command :
         {LabelOk, LabelNg1, LabelNg2, LabelNg3, LabelFree, LabelComment, RemoveLabels}) {
        actions[command]->setEnabled(false);
        actions.WithShift(command)->setEnabled(false);
    }
}

void MainFrame::Undo()
{
    const CString words = document.History()->UndoWords();
    TellDone("元に戻しました: " + words, document.History()->Undo());
}

void MainFrame::Redo()
{
    const CString words = document.History()->RedoWords();
    TellDone("やり直しました: " + words, document.History()->Redo());
}

void MainFrame::TellDone(const CString& words, const std::vector<int>& photos)
{
    if (photos.empty()) return;
    statusBar()->showMessage(QtText(words + "。" + ShowOneOf(photos)), messageTime);
}

CString MainFrame::ShowOneOf(const std::vector<int>& photos)
{
    const ToviData& open = *document.Data();
    const auto isOnShow = [&open](int photo) { return open.GetCurrentArray().Find(photo) >= 0; };
    const int selected = open.GetIndexPhotoArray(open.GetSelectCurIndex());
    if (std::find(photos.begin(), photos.end(), selected) != photos.end()) {
        photoPanel->ShowPhoto(selected);
        return {};
    }
    const auto shown = std::find_if(photos.begin(), photos.end(), isOnShow);
    if (shown != photos.end()) {
        photoPanel->ShowPhoto(*shown);
        return {};
    }
    const CString told = ShowHidden(photos.front());
    photoPanel->ShowPhoto(photos.front());
    return told;
}

void MainFrame::BringIntoView(int photo)
{
    const CString told = ShowOneOf({photo});
    if (!told.empty()) statusBar()->showMessage(QtText(told), messageTime);
}

CString MainFrame::ShowHidden(int photo)
{
    ToviData& open = *document.Data();
    const auto isHidden = [&] { return open.GetCurrentArray().Find(photo) < 0; };
    CString told;
    if (ShowsLabel()) {
        trees->setCurrentWidget(folderTree.get());
        told += "この写真を表示するため、分類の表示に切り替えました。";
    }
    ToviNode* node = open.GetSelectedNode();
    while (isHidden() && node != nullptr && !IsBeneath(*node, photo)) node = node->Parent();
    if (node != nullptr && node != open.GetSelectedNode()) {
        open.SetSelected(node, false);
        folderTree->ChangeSelCompulsion();
        told += "この写真のある分類を表示しました。";
    }
    if (isHidden() && !open.GetSearchText().empty()) {
        extraction->EndSearch(false);
        told += "この写真は検索に合わないため、検索を終えました。";
    }
    if (isHidden()) {
        extraction->End(false);
        told += "この写真は抽出の条件に合わないため、抽出を解除しました。";
    }
    return told;
}
