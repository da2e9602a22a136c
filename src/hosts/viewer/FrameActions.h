#pragma once

#include "windows/pictures/PictureNames.h"

#include <QAction>

#include <map>

class QMainWindow;
class QMenu;
class QToolBar;
class QWidget;

/// The commands of the main window, by the number that each has.
enum class FrameCommand
{
    Open,
    OpenWithFamily,
    OpenDiscs,
    OpenRecord,
    Save,
    SaveAs,
    WriteReport,
    SavePhoto,
    SaveShownPhotos,
    ShowIndex,
    CloseDelivery,
    Quit,
    Undo,
    Redo,
    FirstPage,
    PreviousPage,
    NextPage,
    LastPage,
    Mode1,
    Mode2,
    Mode3,
    Mode4,
    Mode6,
    ModeThumbnails,
    ModeList,
    TreeWorkTypeFull,
    TreePlace,
    TreeWorkType,
    TitleFileName,
    TitleJapaneseFileName,
    TitlePhotoTitle,
    ShowInfoList,
    ShowComments,
    CheckTampering,
    Search,
    ShowExtraction,
    EndExtraction,
    SetUp,
    ZoomPhoto,
    NextZoom,
    ArrangeZooms,
    CloseZooms,
    SlideMode,
    LabelOk,
    LabelNg1,
    LabelNg2,
    LabelNg3,
    LabelFree,
    LabelComment,
    RemoveLabels,
    CorrectLabels,
    NextUnchecked,
    ShowPosition,
    About
};

/// The actions of the main window with their texts, shortcuts and pictures.
class FrameActions
{
public:
    /// \p frame owns the actions.
    explicit FrameActions(QMainWindow* frame);

    QAction* operator[](FrameCommand command) const { return actions.at(command); }
    /// Enables or disables what makes no sense without a delivery.
    void EnableForDelivery(bool isOpen);

    /// Fills the menu bar and the tool bar of \p frame; \p pageLabel stands between the pages'
    /// commands, \p recent is a menu of the file menu, \p windows the commands that show docks.
    void FillMenus(QMainWindow* frame, QMenu* recent, const QList<QAction*>& windows) const;
    void FillToolBar(QToolBar* toolBar, QWidget* pageLabel) const;

private:
    std::map<FrameCommand, QAction*> actions;
};
