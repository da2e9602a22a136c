#include "hosts/viewer/MainFrame.h"

#include "hosts/viewer/DetailDock.h"
#include "hosts/viewer/FrameExtraction.h"
#include "hosts/viewer/FrameKeys.h"
#include "hosts/viewer/FrameLabels.h"
#include "hosts/viewer/FrameManual.h"
#include "hosts/viewer/FrameSession.h"
#include "hosts/viewer/FrameState.h"
#include "hosts/viewer/FrameSurvey.h"
#include "hosts/viewer/GroundMenu.h"
#include "hosts/viewer/HistoryWatch.h"
#include "hosts/viewer/NoPhotosPage.h"
#include "hosts/viewer/NoticeStrip.h"
#include "hosts/viewer/RecentFacts.h"
#include "hosts/viewer/ReviewBar.h"
#include "hosts/viewer/SlideShow.h"
#include "hosts/viewer/StartPage.h"
#include "hosts/viewer/TreeNotes.h"
#include "platform/host/HostServices.h"
#include "platform/text/QtText.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/pictures/Pictures.h"
#include "windows/trees/ToviFolderTreePanel.h"
#include "windows/trees/ToviLabelTreePanel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <chrono>

namespace
{
constexpr int frameStateVersion = 1;
constexpr unsigned int photoPanelId = 100;
constexpr unsigned int folderTreeId = 101;
constexpr unsigned int labelTreeId = 102;
/// How often the profile is looked at for what other programs have set.
constexpr std::chrono::seconds profileInterval(1);

/// The path of what was dropped if a delivery may be there, else empty.
QString DroppedPath(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

/// Accepts what is dropped as something to look at. A program that is told that its files were
/// moved may delete them.
void AcceptUnmoved(QDropEvent& event)
{
    event.setAccepted(event.possibleActions().testFlag(Qt::CopyAction));
    event.setDropAction(Qt::CopyAction);
}
} // namespace

MainFrame::MainFrame()
    : actions(this), notice(new NoticeStrip), centre(new QStackedWidget),
      startPage(new StartPage(actions[FrameCommand::Open])), noPhotos(new NoPhotosPage),
      trees(new QTabWidget), treePages(new QStackedWidget),
      treeDock(new QDockWidget(QStringLiteral("ツリー"), this)), pageLabel(new QLabel),
      recentMenu(new QMenu(QStringLiteral("最近開いた納品データ(&E)"), this)),
      photoPanel(std::make_unique<ToviMpiPanel>(&document)),
      folderTree(std::make_unique<ToviFolderTreePanel>()),
      labelTree(std::make_unique<ToviLabelTreePanel>())
{
    setWindowIcon(PictureIcon("tovi-viewer"));
    setAcceptDrops(true);
    extraction = new FrameExtraction(this, document, actions[FrameCommand::EndExtraction]);
    keys = new FrameKeys(this, actions, photoPanel.get());
    labels = new FrameLabels(this, actions, photoPanel.get());
    historyWatch = new HistoryWatch(this, document);
    survey = new FrameSurvey(this, document);
    connect(survey, &FrameSurvey::PhotoRequested, this, &MainFrame::BringIntoView);
    slideShow = std::make_unique<SlideShow>(this, photoPanel.get());
    new FrameManual(this, actions);
    CreatePanels();
    CreateDock();
    CreateBars();
    ConnectCommands();
    ConnectOutputs();
    ConnectSettings();
    ConnectExtraction();
    ConnectHistory();
    session = new FrameSession(
        this, document, {trees, folderTree.get(), labelTree.get(), photoPanel.get(), extraction});
    FillRecent();
    RestoreState();
    connect(session, &FrameSession::KeepDue, this, &MainFrame::SaveState);
    Refresh();
}

MainFrame::~MainFrame()
{
    slideShow->End();
    document.Close();
}

void MainFrame::CreatePanels()
{
    photoPanel->Create(centre, photoPanelId);
    centre->addWidget(startPage);
    centre->addWidget(photoPanel.get());
    auto* middle = new QWidget;
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(notice);
    column->addWidget(keys->Notice());
    column->addWidget(historyWatch->Strip());
    column->addWidget(survey->Strip());
    column->addWidget(extraction->Strip());
    column->addWidget(centre, 1);
    column->addWidget(labels->CommentStrip());
    column->addWidget(slideShow->Bar());
    centre->addWidget(extraction->NothingPage());
    centre->addWidget(noPhotos);
    setCentralWidget(middle);
    for (ToviPanel* panel :
         std::initializer_list<ToviPanel*>{photoPanel.get(), folderTree.get(), labelTree.get()}) {
        document.AddPanel(panel);
    }
}

void MainFrame::CreateDock()
{
    folderTree->Create(trees, folderTreeId);
    labelTree->Create(trees, labelTreeId);
    trees->addTab(folderTree.get(), PictureIcon("tab-folder-tree"), QStringLiteral("分類"));
    trees->addTab(labelTree.get(), PictureIcon("tab-label-tree"), QStringLiteral("付箋"));
    trees->setDocumentMode(true);
    treeDock->setObjectName(QStringLiteral("trees"));
    // The trees of a closed delivery give place to nothing.
    treePages->addWidget(trees);
    treePages->addWidget(new QWidget);
    treeDock->setWidget(treePages);
    addDockWidget(Qt::LeftDockWidgetArea, treeDock);
    addDockWidget(Qt::LeftDockWidgetArea, extraction->Dock());
    resizeDocks({treeDock}, {260}, Qt::Horizontal);
    connect(trees, &QTabWidget::currentChanged, this, &MainFrame::SwitchTree);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    detailDock = std::make_unique<DetailDock>(this, document);
    connect(detailDock.get(), &DetailDock::VisibleChosen, this, [this](bool visible) {
        ChangeSetting([visible](auto& setting) { setting.SetVisibleDetail(visible); });
    });
}

void MainFrame::CreateBars()
{
    pageLabel->setAlignment(Qt::AlignCenter);
    pageLabel->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000 / 00000")));
    auto* toolBar = new QToolBar(QStringLiteral("ツールバー"), this);
    toolBar->setObjectName(QStringLiteral("commands"));
    toolBar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    toolBar->setIconSize({24, 24});
    actions.FillToolBar(toolBar, pageLabel);
    addToolBar(toolBar);
    actions.Adopt(FrameCommand::ShowDetail, detailDock->ToggleAction());
    addAction(detailDock->ToggleAction());
    actions.FillMenus(this, recentMenu,
                      {treeDock->toggleViewAction(), extraction->Dock()->toggleViewAction(),
                       detailDock->ToggleAction(), actions[FrameCommand::ShowPosition],
                       toolBar->toggleViewAction(), MakeGroundMenu(this)->menuAction(),
                       MakeTreeNotesAction(this, *folderTree)});
    reviewBar = std::make_unique<ReviewBar>(statusBar());
}

void MainFrame::ConnectCommands()
{
    using enum FrameCommand;
    const auto on = [this](FrameCommand command, auto operation) {
        connect(actions[command], &QAction::triggered, this, operation);
    };
    on(Open, [this] { ChooseDelivery(std::nullopt); });
    on(OpenWithFamily, [this] { ChooseDeliveryWithFamily(); });
    on(OpenRecord, [this] { ChooseRecord(); });
    on(Save, [this] { MainFrame::Save(); });
    on(SaveAs, [this] { MainFrame::SaveAs(); });
    on(FrameCommand::CloseDelivery, [this] { MainFrame::CloseDelivery(); });
    on(Quit, [this] { close(); });
    on(FirstPhoto, [this] { photoPanel->OperateFirstPhoto(); });
    on(PreviousPhoto, [this] { photoPanel->OperatePrevPhoto(); });
    on(NextPhoto, [this] { photoPanel->OperateNextPhoto(); });
    on(LastPhoto, [this] { photoPanel->OperateLastPhoto(); });
    on(FirstPage, [this] { photoPanel->OperateTopPage(); });
    on(PreviousPage, [this] { photoPanel->OperatePrevPage(); });
    on(NextPage, [this] { photoPanel->OperateNextPage(); });
    on(LastPage, [this] { photoPanel->OperateLastPage(); });
    on(FrameCommand::SlideMode, [this] {
        labels->FinishComment();
        slideShow->Begin();
    });
    on(ShowPosition, [this] { photoPanel->ShowConfirmDlg(); });
    on(ZoomPhoto, [this] { photoPanel->OnShowProperty(); });
    on(NextZoom, [this] { photoPanel->Zooms().ActivateNext(); });
    on(ArrangeZooms, [this] { photoPanel->Zooms().Arrange(); });
    on(CloseZooms, [this] { photoPanel->DeleteAllDialog(); });
    actions[NextZoom]->setShortcutContext(Qt::ApplicationShortcut);
    on(NextUnchecked, [this] { GoToNextUnchecked(); });
    on(FrameCommand::CorrectLabels, [this] { MainFrame::CorrectLabels(); });
    on(About, [this] { TellVersion(); });
    // The keys belong to the photographs: in a tree or a list they move there.
    for (const FrameCommand command :
         {FirstPhoto, PreviousPhoto, NextPhoto, LastPhoto, PreviousPage, NextPage}) {
        removeAction(actions[command]);
        actions[command]->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        photoPanel->addAction(actions[command]);
    }
    connect(photoPanel.get(), &ToviMpiPanel::PageChanged, this, &MainFrame::ShowPage);
    connect(photoPanel.get(), &ToviMpiPanel::ModeChanged, this, &MainFrame::ShowPage);
    connect(photoPanel.get(), &ToviMpiPanel::SelectionChanged, this,
            [this] { reviewBar->ShowSelected(photoPanel->CountSelected()); });
    connect(startPage, &StartPage::SampleRequested, this, &MainFrame::OpenSample);
    connect(&document, &ViewerDocument::Closing, this, [this] { KeepRecentFacts(document); });
    connect(startPage, &StartPage::DeliveryChosen, this, [this](const QString& folder) {
        MainFrame::OpenDelivery(FromQtText(folder), std::nullopt);
    });
    connect(&document, &ViewerDocument::Updated, this, [this] {
        if (std::exchange(refreshPending, true)) return;
        QTimer::singleShot(0, this, [this] {
            refreshPending = false;
            Refresh();
        });
    });
}

void MainFrame::ConnectSettings()
{
    using enum FrameCommand;
    using Setting = ToviPhotoCtrlVisualSetting;
    const auto set = [this](FrameCommand command, std::function<void(Setting&, bool)> change) {
        connect(actions[command], &QAction::triggered, this, [this, change](bool on) {
            ChangeSetting([&](Setting& setting) { change(setting, on); });
        });
    };
    for (int mode = Setting::DivideOne; mode <= Setting::DivideList; ++mode) {
        set(static_cast<FrameCommand>(static_cast<int>(Mode1) + mode),
            [mode](Setting& s, bool) { s.SetDivType(static_cast<Setting::DivideType>(mode)); });
    }
    const std::pair<FrameCommand, Setting::TreeType> types[] = {
        {TreeWorkTypeFull, Setting::TreeWorkTypeFull},
        {TreePlace, Setting::TreePlace},
        {TreeWorkType, Setting::TreeWorkType}};
    for (const auto& [command, type] : types) {
        set(command, [tree = type](Setting& s, bool) { s.SetTreeType(tree); });
    }
    const std::pair<FrameCommand, Setting::TitleShowType> titles[] = {
        {TitleFileName, Setting::TitleFileName},
        {TitleJapaneseFileName, Setting::TitleJapaneseFileName},
        {TitlePhotoTitle, Setting::TitlePhotoTitle}};
    for (const auto& [command, type] : titles) {
        set(command, [title = type](Setting& s, bool) { s.SetTitleShowType(title); });
    }
    set(ShowInfoList, [](Setting& s, bool on) {
        s.SetImageTextArrange(on ? Setting::TextBeside : Setting::TextHidden);
    });
    set(ShowComments, [](Setting& s, bool on) { s.SetVisibleComment(on); });
    set(CheckTampering, [](Setting& s, bool on) { s.SetDoEditCheck(on); });
    auto* const profileTimer = new QTimer(this);
    connect(profileTimer, &QTimer::timeout, this, &MainFrame::TakeOverSettings);
    profileTimer->start(profileInterval);
}

void MainFrame::ChangeSetting(const std::function<void(ToviPhotoCtrlVisualSetting&)>& change)
{
    if (document.Data() == nullptr) return;
    slideShow->End();
    ToviPhotoCtrlVisualSetting setting = document.Data()->GetVisualSetting();
    change(setting);
    const bool otherTree =
        setting.GetTreeType() != document.Data()->GetVisualSetting().GetTreeType();
    document.ApplySettings(setting);
    // The photographs on show are those of the tree in view.
    if (otherTree) SwitchTree(trees->currentIndex());
}

void MainFrame::TakeOverSettings()
{
    const bool isBusy = !isEnabled() || slideShow->IsOn() ||
                        QApplication::activeModalWidget() != nullptr ||
                        QApplication::activePopupWidget() != nullptr;
    if (!isBusy && document.TakeOverSettings()) SwitchTree(trees->currentIndex());
}

void MainFrame::RestoreState()
{
    constexpr QSize usual(1280, 800);
    constexpr QSize decorations(20, 60);
    resize(usual.boundedTo(screen()->availableSize() - decorations));
    restoreGeometry(FrameState::ReadBytes("Geometry"));
    restoreState(FrameState::ReadBytes("Docks"), frameStateVersion);
}

void MainFrame::SaveState()
{
    // The show has put windows away that come back.
    if (slideShow->IsOn()) return;
    FrameState::WriteBytes("Geometry", saveGeometry());
    FrameState::WriteBytes("Docks",
                           docksAside.isEmpty() ? saveState(frameStateVersion) : docksAside);
}

void MainFrame::SwitchTree(int tab)
{
    auto* panel = static_cast<ToviPanel*>(trees->widget(tab));
    if (panel == nullptr || panel->GetData() == nullptr || !panel->OnPreVisible()) return;
    panel->OnPostVisible();
}

void MainFrame::CorrectLabels()
{
    document.Data()->AllLabelCorrection();
}

void MainFrame::GoToNextUnchecked()
{
    if (photoPanel->SelectNextUnchecked()) return;
    statusBar()->showMessage(QStringLiteral("表示中の写真に未検査のものはありません。"), 5000);
}

void MainFrame::TellVersion()
{
    Tell("Tovi " TOVI_VERSION "\n工事写真の電子納品データを検査するためのプログラムです。");
}

void MainFrame::Tell(const CString& text)
{
    const HostServices& host = GetHostServices();
    host.userInterface->ShowMessage(text, host.applicationName, MessageButtons::Ok,
                                    MessageIcon::Information);
}

void MainFrame::Refresh()
{
    extraction->Show(ShowsLabel());
    ShowCentre();
    ShowSettings();
    ShowPage();
    ShowHistory();
    ShowAccess();
    reviewBar->Show(document);
    reviewBar->ShowSelected(photoPanel->CountSelected());
    const QString title = QtText(document.Title());
    folderTree->SetWorkTitle(document.Title());
    setWindowTitle(title.isEmpty() ? QStringLiteral("Tovi") : title + QStringLiteral("[*] - Tovi"));
    setWindowModified(document.HasUnsavedWork());
}

/// Beside the start page there is nothing for them to show.
void MainFrame::ShowDocks(bool show)
{
    if (show == docksAside.isEmpty()) return;
    const QList<QDockWidget*> docks =
        findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly);
    if (show) {
        restoreState(std::exchange(docksAside, QByteArray()), frameStateVersion);
    } else {
        docksAside = saveState(frameStateVersion);
        for (QDockWidget* dock : docks) dock->hide();
    }
    for (QDockWidget* dock : docks) dock->toggleViewAction()->setEnabled(show);
}

void MainFrame::ShowCentre()
{
    const bool isOpen = document.Data() != nullptr;
    const bool isEmpty = isOpen && document.Data()->IsPhotoArrayEmpty();
    actions.EnableForDelivery(isOpen);
    if (isOpen) actions.ShowLabelNames(*document.Data()->GetLabelManager());
    if (isEmpty) actions.DisableForPhotos();
    ShowDocks(isOpen);
    treeDock->setEnabled(isOpen);
    treePages->setCurrentIndex(isOpen ? 0 : 1);
    QWidget* photos = photoPanel.get();
    if (extraction->FindsNothing()) {
        photos = extraction->NothingPage();
    } else if (isEmpty) {
        noPhotos->Tell(
            NoPhotosText(*document.Data()->GetLabelManager(), document.Data()->GetSelectedIndex()));
        photos = noPhotos;
    }
    centre->setCurrentWidget(isOpen ? photos : startPage);
}

void MainFrame::ShowSettings()
{
    using enum FrameCommand;
    if (document.Data() == nullptr) return;
    const ToviPhotoCtrlVisualSetting& setting = document.Data()->GetVisualSetting();
    const auto check = [this](FrameCommand first, int offset, int count) {
        if (offset < 0 || offset >= count) return;
        actions[static_cast<FrameCommand>(static_cast<int>(first) + offset)]->setChecked(true);
    };
    check(Mode1, setting.GetDivType(), 7);
    constexpr int treePlaces[] = {0, 1, 2};
    if (setting.GetTreeType() >= 0 && setting.GetTreeType() < 3) {
        check(TreeWorkTypeFull, treePlaces[setting.GetTreeType()], 3);
    }
    check(TitleFileName, setting.GetTitleShowType(), 3);
    actions[ShowInfoList]->setChecked(setting.GetImageTextArrange() ==
                                      ToviPhotoCtrlVisualSetting::TextBeside);
    actions[ShowInfoList]->setEnabled(setting.IsPreviewStyle());
    actions[ShowComments]->setChecked(setting.GetVisibleComment());
    actions[CheckTampering]->setChecked(setting.GetDoEditCheck());
}

void MainFrame::ShowPage()
{
    using enum FrameCommand;
    const bool isOpen = document.Data() != nullptr;
    const bool hasPages = isOpen && photoPanel->GetVisualSetting().IsPreviewStyle();
    const int page = photoPanel->GetCurrentPage();
    const int total = photoPanel->GetTotalPage();
    pageLabel->setText(isOpen ? QStringLiteral("%1 / %2").arg(total == 0 ? 0 : page).arg(total)
                              : QString());
    pageLabel->setAccessibleName(QStringLiteral("ページ"));
    for (const FrameCommand back : {FirstPage, PreviousPage}) {
        actions[back]->setEnabled(hasPages && page > 1);
    }
    for (const FrameCommand forth : {NextPage, LastPage}) {
        actions[forth]->setEnabled(hasPages && page < total);
    }
}

void MainFrame::FillRecent()
{
    const CStringArray folders = FrameState::RecentDeliveries();
    startPage->ShowRecent(folders);
    recentMenu->clear();
    recentMenu->setEnabled(!folders.IsEmpty());
    for (const CString& folder : folders) {
        const QString title = ReadRecentFacts(folder).title;
        QString text =
            title.isEmpty() ? QtText(folder) : title + QStringLiteral(" — ") + QtText(folder);
        recentMenu->addAction(text.replace(QLatin1Char('&'), QStringLiteral("&&")), this,
                              [this, folder] { OpenDelivery(folder, std::nullopt); });
    }
}

void MainFrame::TellKeys()
{
    keys->TellOnce();
}

void MainFrame::TellLacks(const CStringArray& sentences)
{
    notice->Tell(sentences);
}

void MainFrame::closeEvent(QCloseEvent* event)
{
    if (!AskToSave()) {
        event->ignore();
        return;
    }
    slideShow->End();
    SaveState();
    document.Close();
    event->accept();
}

void MainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (!DroppedPath(event->mimeData()).isEmpty()) AcceptUnmoved(*event);
}

void MainFrame::dropEvent(QDropEvent* event)
{
    AcceptUnmoved(*event);
    // Behind the drop: a question that it raises would hold up the program that it came from.
    QTimer::singleShot(0, this, [this, path = FromQtText(DroppedPath(event->mimeData()))] {
        OpenDelivery(path, std::nullopt);
    });
}
