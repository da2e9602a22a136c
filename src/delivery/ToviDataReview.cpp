#include "delivery/ToviDataParts.h"
#include "review/LabelCorrection.h"
#include "review/LabelProcessSelectDlg.h"
#include "review/LabelRules.h"
#include "review/RecordOrigin.h"
#include "review/ToviXmlLoadManager.h"
#include "review/ToviXmlSaveManager.h"

#include <algorithm>

int ToviData::CollectionLabel(unsigned long label, ToviPhotoRef& out) const
{
    out.RemoveAll();
    for (int index = 0; index < parts->photos.GetSize(); ++index) {
        if (parts->photos[index]->IsLabelPasted(static_cast<unsigned int>(label))) out.Add(index);
    }
    return out.GetSize();
}

int ToviData::CountLabel(unsigned long label) const
{
    return label < labelCount ? parts->labelEdits.Count(LabelSet().set(label)) : 0;
}

int ToviData::IsLabeled() const
{
    return parts->labelEdits.Count(LabelSet().set()) > 0 ? 1 : 0;
}

void ToviData::UpdateHasComment()
{
    if (curPhotos.IsEmpty()) return;
    hasComment = std::any_of(curPhotos.begin(), curPhotos.end(), [this](int index) {
        return !parts->photos[index]->GetComment().empty();
    });
}

void ToviData::UpdatePhotoInf(CWnd* sender, LabelEdit* edit)
{
    Broadcast(HintPhotoInfoChanged, sender, edit);
}

bool ToviData::AllLabelCorrection()
{
    LabelProcessSelectDlg dialog(
        ScopeOf(parts->photos, std::vector<int>(curPhotos.begin(), curPhotos.end())));
    if (!dialog.DoModal() || !ConfirmLabelCorrection()) return false;
    bool corrected = true;
    switch (dialog.GetAction()) {
    case LabelProcessSelectDlg::PasteOk:
        corrected = AllOKLabel();
        break;
    case LabelProcessSelectDlg::RemoveChecks:
        corrected = AllRemoveCheckLabel();
        break;
    case LabelProcessSelectDlg::RemoveAll:
        AllRemoveLabel();
        break;
    }
    return corrected;
}

bool ToviData::AllOKLabel()
{
    CorrectShown(LabelRules::CorrectUnlessNG);
    return !curPhotos.IsEmpty();
}

bool ToviData::AllRemoveCheckLabel()
{
    CorrectShown(LabelRules::CorrectAllNotCheck);
    return !curPhotos.IsEmpty();
}

void ToviData::AllRemoveLabel()
{
    CorrectShown(LabelRules::RemoveAllLabel);
}

void ToviData::CorrectShown(const std::function<void(PhotoReview&)>& rule)
{
    parts->labelEdits.Apply(parts->labelEdits.Make(LabelEdit::Batch, curPhotos, rule));
}

void ToviData::TellOf(LabelEdit& edit)
{
    // First, so that whoever hears of the change finds the document changed.
    SetCheckStatusChanged(true);
    // What the user does to the photographs that he sees leaves them on show.
    if (edit.kind == LabelEdit::OnePhoto || edit.sender != nullptr) {
        UpdatePhotoInf(edit.sender, &edit);
    } else {
        Broadcast(HintLabelsChanged, edit.sender);
    }
}

RecordOrigin ToviData::GetRecordOrigin()
{
    // Photographs and their items stay as they are once they are loaded.
    if (parts->namesDigest.empty()) {
        parts->namesDigest =
            RecordOrigin::DigestNames(parts->photos, parts->itemDef, parts->pathItems.photograph);
    }
    return {parts->photos, parts->namesDigest};
}

bool ToviData::SaveExamination(const char* path, const char* note, int* result)
{
    if (*path == '\0') return false;
    ToviXmlSaveManager manager(path, note, RootPath());
    manager.WriteOrigin(GetRecordOrigin());
    const bool saved = manager.Save(parts->photos, result);
    if (saved) SetCheckStatusChanged(false);
    return saved;
}

bool ToviData::LoadExamination(const char* path, int* result)
{
    return LoadExamination(path, result, RecordsOfThisDelivery);
}

bool ToviData::LoadExamination(const char* path, int* result, RecordsTaken taken)
{
    if (*path == '\0') return false;
    ToviXmlLoadManager manager(path, RootPath());
    if (taken == RecordsOfThisDelivery) manager.Expect(GetRecordOrigin());
    PhotoReviews before = GetReviews();
    PhotoReviews after = before;
    const bool loaded = manager.Load(after, result);
    if (loaded) {
        parts->labelEdits.Apply(
            LabelEdits::Make(LabelEdit::RecordLoad, std::move(before), std::move(after)));
    }
    UpdateHasComment();
    return loaded;
}

void ToviData::ReturnExam(const char* path)
{
    int ignored = 0;
    ReturnExam(path, &ignored);
}

bool ToviData::ReturnExam(const char* path, int* result)
{
    if (*path == '\0') return false;
    ToviXmlSaveManager manager(path, nullptr, nullptr);
    manager.WritePath(true);
    manager.WriteOrigin(GetRecordOrigin());
    return manager.Save(parts->photos, result);
}
