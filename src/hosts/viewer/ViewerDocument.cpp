#include "hosts/viewer/ViewerDocument.h"

#include "delivery/DeliveryOpening.h"
#include "delivery/MediaCombine.h"
#include "delivery/ToviEnouDataFactory.h"
#include "extraction/ToviSortCondition.h"
#include "history/HistoryOpening.h"
#include "history/HistoryPath.h"
#include "hosts/viewer/ItemOrder.h"
#include "inspection/RecordProblems.h"
#include "items/ToviItemDef.h"
#include "items/ToviItemManager.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "loading/DeliveryLocation.h"
#include "loading/WorkTitle.h"
#include "platform/controls/WindowHandle.h"
#include "platform/files/DeliveredFolder.h"
#include "platform/files/MibFile.h"
#include "reports/OutputPhotoFolder.h"
#include "windows/panel/ToviPanel.h"

#include <future>

namespace
{
constexpr const char* familyHint = "要領の系統（［ファイル］→［要領を指定して開く］）";

/// The path of the history of the delivery that \p path leads to, worked out while that is read.
std::future<CString> FindHistoryPath(const CString& path)
{
    return std::async(std::launch::async, [path] {
        const CStringArray found = FindPhotoFolders(path);
        return found.GetSize() == 1 ? HistoryPathOf(found[0]) : CString();
    });
}
} // namespace

void ViewerDocument::AddPanel(ToviPanel* panel)
{
    panels.push_back(panel);
}

CString ViewerDocument::Open(const CString& path, std::optional<PhotoXMLType> family,
                             const CString& named)
{
    std::future<CString> historyPath = FindHistoryPath(path);
    OpenedDelivery opened = OpenDelivery(*this, path, family, familyHint);
    if (!opened.IsLoaded()) return opened.problem;
    Close();
    Take(std::move(opened), historyPath.get(), named);
    return {};
}

CString ViewerDocument::OpenDiscs(const CString& path)
{
    OpenedDelivery opened = OpenDelivery(*this, path, std::nullopt, familyHint);
    if (!opened.IsLoaded()) return opened.problem;
    Close();
    ToviEnouDataFactory factory;
    if (StartsCombineArea(opened.photoFolder)) factory.DeleteTempData();
    if (!factory.StartCombineProc(opened.photoFolder, opened.document.get(), true)) {
        return factory.IsCombineCancelled() ? "写真の取込を中止しました。"
                                            : "写真を取り込めませんでした。メディアと、作業フォルダ"
                                              "の空き容量を確かめてください。";
    }
    const CString historyPath = HistoryPathOf(opened.photoFolder);
    Take(std::move(opened), historyPath);
    return {};
}

void ViewerDocument::Take(OpenedDelivery opened, const CString& historyPath, const CString& named)
{
    OpenedHistory begun = OpenHistory(*opened.document, named, historyPath);
    history = std::move(begun.history);
    session = std::move(begun.session);
    history->SetOnRefusal([this] { emit EditRefused(); });
    if (begun.mark) record.Resume(*begun.mark);
    data = std::move(opened.document);
    folder = opened.folder;
    notice = opened.notice + begun.notice;
    workTitle = ReadWorkTitle(data->GetItemDef()->GetParentPath());
    data->Load();
    ItemOrder::Restore(data->GetItemManager()->GetItemShowSettings());
    // Builds the chain of the tamper check, which has none until it is told.
    data->SetVisualSetting(data->GetVisualSetting(), true);
    data->BuildTreeNode(data->GetVisualSetting().GetTreeType());
    for (ToviPanel* panel : panels) panel->Attach(data.get());
    UpdateAllViews(nullptr, ToviData::HintInitialize, nullptr);
    CString problem;
    if (!begun.record.empty()) LoadRecord(begun.record, problem);
    notice += problem;
    emit Opened();
}

void ViewerDocument::Close()
{
    if (!data) return;
    emit Closing();
    UpdateAllViews(nullptr, ToviData::HintDetach, nullptr);
    history.reset();
    data.reset();
    record.Forget();
    workTitle.clear();
    folder.clear();
}

CString ViewerDocument::Title() const
{
    if (!workTitle.empty() || folder.empty()) return workTitle;
    CString path = MibAbsolutePath(folder);
    while (path.ends_with('/')) path.pop_back();
    return path.substr(path.rfind('/') + 1);
}

bool ViewerDocument::SaveRecord(const CString& path, CString& problem)
{
    for (const CString& file : {path, MibTargetPath(path)}) {
        if (IsInDelivery(file) || IsDeliveryFolder(*data, FolderOfFile(file)) ||
            MibIsInside(folder, FolderOfFile(file))) {
            problem = "納品データのフォルダには保存しません。別のフォルダを選んでください。";
            return false;
        }
    }
    const RecordFile::SaveResult result = record.Save(*data, path);
    if (result.outcome == RecordFile::Outcome::Elsewhere) return SaveRecord(result.text, problem);
    const bool saved = result.outcome == RecordFile::Outcome::Saved;
    if (saved) history->NoteRecord(record.GetMark());
    problem = result.text;
    emit Updated();
    return saved;
}

bool ViewerDocument::LoadRecord(const CString& path, CString& problem)
{
    if (!record.Load(*data, path, problem)) return false;
    data->SetCheckStatusChanged(false);
    history->NoteRecord(record.GetMark());
    UpdateAllViews(nullptr, ToviData::HintLabelsChanged, nullptr);
    return true;
}

void ViewerDocument::ApplySettings(const ToviPhotoCtrlVisualSetting& setting)
{
    const bool otherTree = setting.GetTreeType() != data->GetVisualSetting().GetTreeType();
    data->SetVisualSetting(setting, false);
    if (otherTree) data->BuildTreeNode(setting.GetTreeType());
    UpdateAllViews(nullptr, ToviData::HintSettingsChanged, nullptr);
}

bool ViewerDocument::TakeOverSettings()
{
    if (!data) return false;
    const int tree = data->GetVisualSetting().GetTreeType();
    const ToviSortCondition order = data->GetSortCondition();
    if (!data->TakeOverSettings()) return false;
    const bool otherTree = data->GetVisualSetting().GetTreeType() != tree;
    if (otherTree) data->BuildTreeNode(data->GetVisualSetting().GetTreeType());
    UpdateAllViews(nullptr, ToviData::HintSettingsChanged, nullptr);
    return otherTree || !(data->GetSortCondition() == order);
}

void ViewerDocument::UpdateAllViews(CWnd* sender, int hint, CObject* object)
{
    for (ToviPanel* panel : panels) {
        if (AsWindow(panel) == sender) continue;
        panel->OnUpdate(sender, static_cast<ToviData::UpdateHint>(hint), object);
    }
    emit Updated();
}
