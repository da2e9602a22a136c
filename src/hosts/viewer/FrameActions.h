#pragma once

#include "windows/keys/FrameCommand.h"

#include <QAction>

#include <map>

class QMainWindow;
class QMenu;
class QToolBar;
class QWidget;
class ToviLabelManager;

/// The actions of the main window with their texts, shortcuts and pictures.
class FrameActions
{
public:
    /// \p frame owns the actions.
    explicit FrameActions(QMainWindow* frame);

    QAction* operator[](FrameCommand command) const { return actions.at(command); }
    /// What the keys of a label's command do with Shift.
    QAction* WithShift(FrameCommand command) const { return withShift.at(command); }
    /// \p action, which another window owns, is what \p command does.
    void Adopt(FrameCommand command, QAction* action);
    /// Gives all the present keys (see CurrentKeys).
    void ApplyKeys();
    /// Calls the labels' commands by the names in \p labels.
    void ShowLabelNames(const ToviLabelManager& labels);
    /// Enables or disables what makes no sense without a delivery.
    void EnableForDelivery(bool isOpen);
    /// Disables what makes no sense while no photograph is on show.
    void DisableForPhotos();

    /// Fills the menu bar and the tool bar of \p frame; \p pageLabel stands between the pages'
    /// commands, \p recent is a menu of the file menu, \p windows the commands that show docks.
    void FillMenus(QMainWindow* frame, QMenu* recent, const QList<QAction*>& windows) const;
    void FillToolBar(QToolBar* toolBar, QWidget* pageLabel) const;

private:
    std::map<FrameCommand, QAction*> actions;
    std::map<FrameCommand, QAction*> withShift;
};
