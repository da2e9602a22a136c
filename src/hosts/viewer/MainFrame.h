#pragma once

#include "hosts/viewer/FrameActions.h"
#include "hosts/viewer/ViewerDocument.h"

#include <QMainWindow>

class FrameExtraction;
class FrameKeys;
class FrameLabels;
class FrameSession;
class FrameSurvey;
class DetailDock;
class HistoryWatch;
class NoPhotosPage;
class NoticeStrip;
class QDockWidget;
class QLabel;
class QStackedWidget;
class QTabWidget;
class ReviewBar;
class SlideShow;
class StartPage;
class ToviFolderTreePanel;
class ToviLabelTreePanel;
class ToviMpiPanel;

/// The main window: the trees on the left, the photographs in the middle, and the commands on what
/// is open.
class MainFrame : public QMainWindow
{
    Q_OBJECT

public:
    MainFrame();
    ~MainFrame() override;

    /// Opens the delivery that \p path leads to (see FindPhotoFolders), asking first about unsaved
    /// work, and which one it is where there are several.
    /// What is wrong with it is shown in the window. False when it isn't open. \p record is the
    /// record to take up with it; empty for none.
    bool OpenDelivery(const CString& path, std::optional<PhotoXMLType> family,
                      const CString& record = {});
    /// Opens the delivery whose first disc or folder is \p path, and asks for the others until no
    /// file is missing or the user gives up. As above otherwise.
    bool OpenDiscs(const CString& path);
    /// Opens the delivery that was open when the program ended last, if the user wants that.
    void OpenLast();
    /// Takes up the inspection in the file \p path. What is wrong is told in a message.
    bool OpenRecord(const CString& path);
    /// Shows what the machine lacks (see WhatMachineLacks) in a strip.
    void TellLacks(const CStringArray& sentences);
    /// Tells which keys paste labels, the first time.
    void TellKeys();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void CreatePanels();
    void CreateDock();
    void CreateBars();
    void ConnectCommands();
    void ConnectSettings();
    void RestoreState();
    void SaveState();

    void ChooseDelivery(std::optional<PhotoXMLType> family);
    void ChooseDeliveryWithFamily();
    /// Shows the delivery that was opened, or the \p problem for which it wasn't. False when there
    /// is one.
    bool ShowOpened(const CString& problem);
    void ChooseRecord();
    bool Save();
    bool SaveAs();
    bool SaveTo(const CString& path);
    void CloseDelivery();
    /// Lets the user save unsaved work. False when the user doesn't want to go on.
    bool AskToSave();

    void ConnectOutputs();
    void ChooseDiscs();
    /// Makes the sample to try, if need be, and opens it.
    void OpenSample();
    void WriteReport();
    void SavePhoto();
    void SaveShownPhotos();
    void ShowIndex();

    void SwitchTree(int tab);
    /// The photographs on show are those of a label.
    bool ShowsLabel() const;
    void ConnectExtraction();
    /// Lets the user edit all settings (設定).
    void SetUp();
    void ChangeSetting(const std::function<void(ToviPhotoCtrlVisualSetting&)>& change);
    /// Shows what other programs have made of the settings, unless the user is amid something.
    void TakeOverSettings();
    void ConnectHistory();
    /// Take a change back, or do it again, and bring it into view.
    void Undo();
    void Redo();
    void TellDone(const CString& words, const std::vector<int>& photos);
    /// Shows and selects one of \p photos (photo indexes). What hides all of them ends: the
    /// sentences about that, or nothing.
    CString ShowOneOf(const std::vector<int>& photos);
    CString ShowHidden(int photo);
    /// Shows the photograph with the photo index \p photo, and tells what had to end for that.
    void BringIntoView(int photo);
    void ShowHistory();
    /// Takes away the commands that change what may only be looked at.
    void ShowAccess();
    void CorrectLabels();
    void GoToNextUnchecked();
    void TellVersion();
    void Tell(const CString& text);

    /// Shows what the document and the panel are at.
    void Refresh();
    void ShowSettings();
    void ShowPage();
    void ShowCentre();
    void ShowDocks(bool show);
    void FillRecent();

    ViewerDocument document;
    FrameActions actions;
    NoticeStrip* notice;
    QStackedWidget* centre;
    StartPage* startPage;
    NoPhotosPage* noPhotos;
    QTabWidget* trees;
    QStackedWidget* treePages;
    QDockWidget* treeDock;
    QLabel* pageLabel;
    QMenu* recentMenu;
    std::unique_ptr<ToviMpiPanel> photoPanel;
    std::unique_ptr<ToviFolderTreePanel> folderTree;
    std::unique_ptr<ToviLabelTreePanel> labelTree;
    /// The docks of an open delivery, while none is and they are out of sight.
    QByteArray docksAside;
    FrameExtraction* extraction = nullptr;
    FrameKeys* keys = nullptr;
    FrameLabels* labels = nullptr;
    HistoryWatch* historyWatch = nullptr;
    FrameSurvey* survey = nullptr;
    FrameSession* session = nullptr;
    std::unique_ptr<DetailDock> detailDock;
    std::unique_ptr<ReviewBar> reviewBar;
    std::unique_ptr<SlideShow> slideShow;
    /// The document was updated and the window will be soon: several updates show as one.
    bool refreshPending = false;
};
