// What the panel does to labels and comments, and its menu.

#include "windows/page/ToviMpiPanel.h"

#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/text/QtText.h"
#include "windows/comments/CommentTexts.h"
#include "windows/dialogs/ToviInputCommentDlg.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/page/EditEcho.h"
#include "windows/page/VerdictEcho.h"
#include "windows/panel/ToviPopUpMenu.h"

#include <QCursor>

std::optional<CString> ToviMpiPanel::AskComment(const LabelCommands::Photos& photos,
                                                const CString& comment)
{
    ToviInputCommentDlg dialog(window());
    dialog.SetComment(comment);
    dialog.SetSubject(WordsFor(photos), views.PlaceOf(SelectedPosition()));
    if (!dialog.DoModal()) return {};
    CommentTexts::NoteUse(dialog.GetComment());
    return dialog.GetComment();
}

CommentedPhotos ToviMpiPanel::SelectedForComment() const
{
    LabelCommands::Photos photos = SelectedPhotos();
    if (photos.empty()) return {};
    return {photos, WordsFor(photos), labels.CommonComment(photos)};
}

void ToviMpiPanel::SetComment(const LabelCommands::Photos& photos, const CString& comment)
{
    if (GetData() == nullptr) return;
    CommentTexts::NoteUse(comment);
    labels.SetComment(photos, comment);
}

/// What \p photos are called where the user changes them.
QString ToviMpiPanel::WordsFor(const LabelCommands::Photos& photos) const
{
    if (photos.size() != 1) return QStringLiteral("選択した %1 枚の写真").arg(photos.size());
    const int title = GetData()->GetItemDef()->GetIndexFromEnum(visualSetting.GetTitleShowType());
    return QtText(GetData()->GetPhotoActualPhotoArray(photos.front())->GetTitle(title));
}

void ToviMpiPanel::ShowEdit(const LabelEdit& edit)
{
    ShowOutcome(edit);
    ShowEcho(edit);
}

void ToviMpiPanel::ShowOutcome(const LabelEdit& edit)
{
    if (edit.kind == LabelEdit::OnePhoto) {
        for (const LabelEdit::Change& change : edit.changes) ShowChange(change);
    } else {
        InvalidateAllCtrls();
    }
    zooms.RefreshLabels();
}

/// Over the photograph, or the whole panel where it isn't on show.
void ToviMpiPanel::ShowEcho(const LabelEdit& edit)
{
    const QString words = EchoOf(edit, *GetData()->GetLabelManager());
    if (words.isEmpty()) return;
    const int position = GetData()->GetCurrentArray().Find(edit.changes.front().photo);
    const QRect seen = views.PlaceOf(position);
    const QRect place(mapFromGlobal(seen.topLeft()), seen.size());
    const bool isInSight = position >= 0 && edit.changes.size() == 1 && rect().intersects(place);
    echo->Tell(words, isInSight ? place : rect());
}

void ToviMpiPanel::ShowChange(const LabelEdit::Change& change)
{
    const int position = GetData()->GetCurrentArray().Find(change.photo);
    if (position < 0) return;
    views.ShowLabels(position);
    if (change.before.comment == change.after.comment) return;
    const int index = views.List() != nullptr ? position : views.Cells().CellOf(position);
    if (index >= 0) UpdateComment(index, change.after.comment);
}

void ToviMpiPanel::PasteLabel(int label)
{
    labels.Paste(SelectedPhotos(), static_cast<unsigned int>(label));
}

void ToviMpiPanel::RemoveLabel(int label)
{
    labels.Remove(SelectedPhotos(), static_cast<unsigned int>(label));
}

bool ToviMpiPanel::ToggleLabel(int label)
{
    return labels.Toggle(SelectedPhotos(), static_cast<unsigned int>(label));
}

void ToviMpiPanel::OnRemoveAllLabel()
{
    labels.RemoveAll(SelectedPhotos());
}

void ToviMpiPanel::AllPhotoAllLabelRemove()
{
    if (PhotoCount() == 0) return;
    GetData()->AllRemoveLabel();
    views.EnableFloaty();
}

void ToviMpiPanel::UpdateComment(int index, const CString& text)
{
    views.ShowComment(index, text);
    if (GetData() != nullptr) GetData()->UpdateHasComment();
}

void ToviMpiPanel::InvalidateAllCtrls()
{
    views.ShowAllLabels();
    views.Cells().ForEach([](ToviSpiCtrl& cell) { cell.LayoutChildren(); });
    views.CreateCommentWindow();
    views.ReCalcCommentWindow();
    GetData()->UpdateHasComment();
}

void ToviMpiPanel::ShowConfirmDlg()
{
    if (GetData() != nullptr) positionWindow.Show(*GetData(), window());
}

void ToviMpiPanel::ShowPopUpMenu()
{
    if (SelectedPosition() < 0) return;
    CloseMenu();
    menu = new ToviPopUpMenu(*GetData()->GetLabelManager(), this);
    menu->EnableItems(EnabledItems());
    connect(menu, &ToviPopUpMenu::CommandChosen, this, &ToviMpiPanel::OnMenuCommand);
    connect(menu, &QMenu::aboutToHide, this, [this] { views.ShowFloaty(true); });
    views.ShowFloaty(false);
    menu->popup(MenuPlace());
}

/// What can be done to any of the selected photographs.
LabelMenuItems ToviMpiPanel::EnabledItems() const
{
    LabelMenuItems items{};
    for (const int photo : SelectedPhotos())
        items |= EnabledLabelItems(*GetData()->GetPhotoActualPhotoArray(photo));
    return items;
}

void ToviMpiPanel::CloseMenu()
{
    if (!menu) return;
    menu->close();
    menu->deleteLater();
}

/// Where the mouse is, unless the menu was called by a key.
QPoint ToviMpiPanel::MenuPlace() const
{
    const QPoint cursor = QCursor::pos();
    return rect().contains(mapFromGlobal(cursor)) ? cursor
                                                  : views.PlaceOf(SelectedPosition()).center();
}

void ToviMpiPanel::OnMenuCommand(unsigned int id)
{
    if (id == LabelMenuId::zoom) {
        OnShowProperty();
    } else if (id == LabelMenuId::removeAll) {
        OnRemoveAllLabel();
    } else if (id >= LabelMenuId::paste) {
        OnPasteLabel(id);
    } else {
        OnRemoveLabel(id);
    }
}

void ToviMpiPanel::OnPasteLabel(unsigned int id)
{
    labels.Paste(SelectedPhotos(), id - LabelMenuId::paste);
}

void ToviMpiPanel::OnRemoveLabel(unsigned int id)
{
    labels.Remove(SelectedPhotos(), id - LabelMenuId::remove);
}
