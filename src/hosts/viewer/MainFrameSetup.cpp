// The main window's commands on which photographs are shown, and on the settings.

#include "hosts/viewer/FrameExtraction.h"
#include "hosts/viewer/FrameKeys.h"
#include "hosts/viewer/ItemOrder.h"
#include "hosts/viewer/MainFrame.h"
#include "hosts/viewer/NoPhotosPage.h"
#include "hosts/viewer/SlideShow.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/setup/ToviSetUpDlg.h"
#include "windows/trees/ToviFolderTreePanel.h"
#include "windows/trees/ToviLabelTreePanel.h"

#include <QTabWidget>

bool MainFrame::ShowsLabel() const
{
    return document.Data() != nullptr && trees->currentWidget() == labelTree.get();
}

void MainFrame::ConnectExtraction()
{
    connect(actions[FrameCommand::ShowExtraction], &QAction::triggered, extraction,
            &FrameExtraction::ShowConditions);
    connect(extraction, &FrameExtraction::Changed, &document, &ViewerDocument::Updated);
    connect(extraction, &FrameExtraction::EndRequested, this,
            [this] { extraction->End(ShowsLabel()); });
    connect(actions[FrameCommand::Search], &QAction::triggered, extraction,
            &FrameExtraction::BeginSearch);
    connect(extraction, &FrameExtraction::SearchRequested, this,
            [this] { extraction->Search(ShowsLabel()); });
    connect(extraction, &FrameExtraction::SearchEndRequested, this, [this] {
        extraction->EndSearch(ShowsLabel());
        photoPanel->setFocus();
    });
    connect(extraction, &FrameExtraction::PhotosRequested, this,
            [this] { photoPanel->setFocus(); });
    connect(photoPanel.get(), &ToviMpiPanel::OrderChanged, this,
            [this] { SwitchTree(trees->currentIndex()); });
    connect(noPhotos, &NoPhotosPage::BackRequested, this, [this] {
        trees->setCurrentWidget(folderTree.get());
        photoPanel->setFocus();
    });
    connect(actions[FrameCommand::SetUp], &QAction::triggered, this, &MainFrame::SetUp);
}

void MainFrame::SetUp()
{
    slideShow->End();
    ToviData& open = *document.Data();
    ToviSetUpDlg dialog(*open.GetLabelManager(), open.GetVisualSetting(), open.GetSortCondition(),
                        *open.GetItemManager(), this);
    if (!dialog.DoModal()) return;
    const bool otherOrder = !(dialog.GetSortCondition() == open.GetSortCondition());
    open.SetManager(dialog.GetLabelMngr(), dialog.GetItemManager(), true);
    ItemOrder::Save(open.GetItemManager()->GetItemShowSettings());
    open.SetSortCondition(dialog.GetSortCondition());
    document.ApplySettings(dialog.GetVisualSetting());
    // Several settings at once are more than the panel would tell apart.
    photoPanel->SetVisualSetting(open.GetVisualSetting(), true);
    keys->Apply();
    // The photographs on show come in the order of the tree in view, or sorted.
    if (otherOrder) SwitchTree(trees->currentIndex());
}
