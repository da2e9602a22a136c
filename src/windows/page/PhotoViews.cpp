#include "windows/page/PhotoViews.h"

#include "items/ToviPhotoCtrlVisualSetting.h"
#include "platform/controls/WindowId.h"
#include "platform/host/CDocument.h"
#include "windows/cell/CellChild.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/loader/FileLoader.h"
#include "work/ReadingLimit.h"

#include <QAbstractItemView>

#include <algorithm>

namespace
{
constexpr int idFirstCell = 100;
constexpr int idList = 131;
/// Until the floating tool bar comes back, in ms.
} // namespace

PhotoViews::PhotoViews(QWidget& theParent, const ToviPhotoCtrlVisualSetting& theSetting,
                       CDocument* theHost)
    : parent(theParent), setting(theSetting), host(theHost), listContent(theSetting)
{
    connect(&strips, &CommentStrips::Clicked, this, &PhotoViews::OnStripClicked);
    connect(&strips, &CommentStrips::DoubleClicked, this, &PhotoViews::OnStripDoubleClicked);
}

PhotoViews::~PhotoViews()
{
    Destroy();
}

void PhotoViews::Create(ToviData& document)
{
    Destroy();
    data = &document;
    FileLoader::Ours().SetBudget(PictureMemory::LoadInBytes());
    const int count = static_cast<int>(setting.GetCountOfSet());
    if (count > 0) {
        cells.Create(count, [this](int index) { return MakeCell(index); });
    } else {
        CreateList();
    }
}

void PhotoViews::Destroy()
{
    InitializeCommentWindow();
    ahead.Clear();
    cells.Destroy();
    list.reset();
    listContent.SetDocument(nullptr);
    data = nullptr;
}

std::unique_ptr<ToviSpiCtrl> PhotoViews::MakeCell(int index)
{
    auto made = std::make_unique<ToviSpiCtrl>(data, host, &setting, idFirstCell + index, &parent);
    const ToviSpiCtrl* const cell = made.get();
    connect(cell, &ToviSpiCtrl::Clicked, this, [this, index] { emit CellClicked(index); });
    connect(cell, &ToviSpiCtrl::DoubleClicked, this,
            [this, index] { emit CellDoubleClicked(index); });
    connect(cell, &ToviSpiCtrl::RightClicked, this,
            [this, index] { emit CellRightClicked(index); });
    connect(cell, &ToviSpiCtrl::KeyPressed, this, &PhotoViews::CellKeyPressed);
    connect(cell, &ToviSpiCtrl::PasteLabelRequested, this, &PhotoViews::PasteLabelRequested);
    connect(cell, &ToviSpiCtrl::RemoveLabelRequested, this, &PhotoViews::RemoveLabelRequested);
    made->show();
    return made;
}

void PhotoViews::CreateList()
{
    using List = ToviPhotoListCtrl;
    const auto look = setting.IsThumbListStyle() ? List::Look::Icon : List::Look::Report;
    listContent.SetDocument(data);
    list = std::make_unique<List>(look, listContent, &parent);
    SetWindowId(list.get(), idList);
    // Before it is filled: in another width the selected item would stand elsewhere.
    list->setGeometry(parent.rect());
    connect(list.get(), &List::KeyPressed, this, &PhotoViews::ListKeyPressed);
    connect(list.get(), &List::Scrolled, this, &PhotoViews::ReCalcCommentWindow);
    connect(list.get(), &List::FloatyPressed, this, &PhotoViews::FloatyPressed);
    connect(list.get(), &List::OrderChanged, this, &PhotoViews::OrderChanged);
    connect(list.get(), &List::ItemSelected, this, &PhotoViews::ItemSelected);
    connect(list.get(), &List::SelectionCleared, this, [this] {
        ShowFloaty(false);
        emit ItemSelected(-1);
    });
    connect(list.get(), &List::ItemDoubleClicked, this, &PhotoViews::ItemDoubleClicked);
    connect(list.get(), &List::ItemRightClicked, this, &PhotoViews::ItemRightClicked);
    ShowLabelNames();
    list->show();
}

void PhotoViews::ShowPage(int first)
{
    cells.Show(first);
    ahead.Show(*data, first, cells.Count());
}

void PhotoViews::RefillList()
{
    if (!list) return;
    if (setting.IsThumbListStyle()) {
        list->SetupThumbListCtrl();
    } else {
        list->SetupMngmntListCtrl();
    }
    ShowFloaty(true);
}

void PhotoViews::Place()
{
    if (parent.rect().isEmpty()) return;
    if (list) {
        list->setGeometry(parent.rect());
    } else {
        cells.Place(parent.size(), static_cast<int>(setting.GetColCount()),
                    static_cast<int>(setting.GetRowCount()));
    }
    ReCalcCommentWindow();
}

void PhotoViews::Focus(int position)
{
    if (list) {
        list->setFocus();
    } else if (cells.Count() > 0) {
        cells.At(std::max(0, cells.CellOf(position))).FocusChild(idNamePlate);
    }
}

QRect PhotoViews::PlaceOf(int position) const
{
    const auto onScreen = [](const QWidget& widget, const QRect& place) {
        return QRect(widget.mapToGlobal(place.topLeft()), place.size());
    };
    if (list) return onScreen(*list->View()->viewport(), list->GetItemRect(position));
    const int index = std::max(0, cells.CellOf(position));
    if (index >= cells.Count()) return onScreen(parent, parent.rect());
    return onScreen(cells.At(index), QRect({}, cells.At(index).GetImageSize()));
}

void PhotoViews::ShowLabels(int position)
{
    if (list) {
        list->ResetItem(position);
        EnableFloaty();
    } else if (const int index = cells.CellOf(position); index >= 0) {
        cells.At(index).UpdateLabelButtons();
    }
}

void PhotoViews::ShowAllLabels()
{
    UpdateNamePlate();
    if (!list) return;
    list->UpdateImageList();
    EnableFloaty();
}

void PhotoViews::UpdateNamePlate()
{
    cells.ForEach([](ToviSpiCtrl& cell) { cell.UpdateLabelButtons(); });
}

void PhotoViews::ShowLabelNames()
{
    if (list) list->ShowLabelNames(*data->GetLabelManager());
    cells.ForEach([](ToviSpiCtrl& cell) { cell.ApplyLabelNames(); });
}

void PhotoViews::EnableFloaty()
{
    const ToviPhoto* const photo = list ? data->GetPhoto(list->GetSelected()) : nullptr;
    if (photo == nullptr) return;
    for (unsigned int label = 0; label < labelCount; ++label)
        list->SetButtonState(static_cast<int>(label), photo->IsLabelPasted(label));
}

void PhotoViews::ShowFloaty(bool show)
{
    if (!list) return;
    if (show) EnableFloaty();
    list->EnableFloaty(show);
}

void PhotoViews::ShowComment(int index, const CString& text)
{
    if (list && setting.IsManagementListStyle()) {
        list->ResetItem(index);
        return;
    }
    ToviCommentWindow* const strip = strips.At(index);
    if (strip != nullptr) {
        strip->SetComment(text);
        strip->ShowIfAny(setting.GetVisibleComment());
    }
    if (!list) cells.At(index).LayoutChildren();
}

void PhotoViews::CreateCommentWindow()
{
    strips.Reset(list && data != nullptr ? data->GetCurrentPhotoCount() : cells.CountFilled());
}

void PhotoViews::ReCalcCommentWindow()
{
    if (data == nullptr || !setting.GetVisibleComment()) return;
    if (!list) {
        strips.PlaceOnCells(cells, *data);
    } else if (setting.IsThumbListStyle() && list->GetItemCount() == data->GetCurrentPhotoCount()) {
        // While the two differ, a refill that places them is on its way.
        strips.PlaceOnList(
            list->View()->viewport(), [this](int row) { return list->GetItemRect(row); }, *data);
    }
}

void PhotoViews::OnStripClicked(ToviCommentWindow* strip)
{
    if (list) {
        list->setFocus();
        list->OnCommentWindowClicked(strip);
    } else if (const int index = cells.CellOf(strip->GetPhotoPosition()); index >= 0) {
        cells.At(index).OnCommentWindowClicked(strip);
    }
}

void PhotoViews::OnStripDoubleClicked(ToviCommentWindow* strip)
{
    if (list) {
        list->OnCommentWindowDblClicked();
    } else if (const int index = cells.CellOf(strip->GetPhotoPosition()); index >= 0) {
        cells.At(index).OnCommentWindowDblClicked(strip);
    }
}
