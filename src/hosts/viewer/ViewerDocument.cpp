#include "hosts/viewer/ViewerDocument.h"

#include "loading/DeliveryOpening.h"
#include "loading/MediaCombine.h"
#include "loading/ToviEnouDataFactory.h"
#include "loading/WorkTitle.h"
#include "panels/ToviPanel.h"
#include "platform/controls/WindowHandle.h"
#include "platform/MibFile.h"
#include "reports/OutputPhotoFolder.h"
#include "review/RecordProblems.h"

namespace
{
constexpr const char* familyHint = "要領の系統（［ファイル］→［要領を指定して開く］）";
constexpr int noReason = -1;
} // namespace

void ViewerDocument::AddPanel(ToviPanel* panel)
{
    panels.push_back(panel);
}

CString ViewerDocument::Open(const CString& path, std::optional<PhotoXMLType> family)
{
    OpenedDelivery opened = OpenDelivery(*this, path, family, familyHint);
    if (!opened.IsLoaded()) return opened.problem;
    Close();
    Take(std::move(opened));
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
    Take(std::move(opened));
    return {};
}

void ViewerDocument::Take(OpenedDelivery opened)
{
    data = std::move(opened.document);
    folder = opened.folder;
    workTitle = ReadWorkTitle(data->GetItemDef()->GetParentPath());
    data->Load();
    // Builds the chain of the tamper check, which has none until it is told.
    data->SetVisualSetting(data->GetVisualSetting(), true);
    data->BuildTreeNode(data->GetVisualSetting().GetTreeType());
    for (ToviPanel* panel : panels) panel->Attach(data.get());
    UpdateAllViews(nullptr, ToviData::HintInitialize, nullptr);
}

void ViewerDocument::Close()
{
    if (!data) return;
    UpdateAllViews(nullptr, ToviData::HintDetach, nullptr);
    data.reset();
    recordPath.clear();
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

CString ViewerDocument::SaveRecord(const CString& path)
{
    if (IsDeliveryFolder(*data, FolderOfFile(path)) || MibIsInside(folder, FolderOfFile(path))) {
        return "納品データのフォルダには保存しません。別のフォルダを選んでください。";
    }
    int reason = noReason;
    if (!data->SaveExamination(path.c_str(), nullptr, &reason)) {
        return WhyRecordNotSaved(path, reason);
    }
    recordPath = path;
    emit Updated();
    return {};
}

CString ViewerDocument::LoadRecord(const CString& path)
{
    int reason = noReason;
    if (!data->LoadExamination(path.c_str(), &reason)) {
        return WhyRecordNotLoaded(*data, path, reason);
    }
    recordPath = path;
    data->SetCheckStatusChanged(false);
    UpdateAllViews(nullptr, ToviData::HintLabelsChanged, nullptr);
    return {};
}

void ViewerDocument::ApplySettings(const ToviPhotoCtrlVisualSetting& setting)
{
    const bool otherTree = setting.GetTreeType() != data->GetVisualSetting().GetTreeType();
    data->SetVisualSetting(setting, false);
    if (otherTree) data->BuildTreeNode(setting.GetTreeType());
    UpdateAllViews(nullptr, ToviData::HintSettingsChanged, nullptr);
}

void ViewerDocument::UpdateAllViews(CWnd* sender, int hint, CObject* object)
{
    for (ToviPanel* panel : panels) {
        if (AsWindow(panel) == sender) continue;
        panel->OnUpdate(sender, static_cast<ToviData::UpdateHint>(hint), object);
    }
    emit Updated();
}
