#pragma once

class QAction;
class QObject;
class ToviFolderTreePanel;

/// The command, owned by \p parent, by which the user has \p panel tell what a click on each node
/// shows and what is left of it, or not. The choice is kept in the profile; at first it tells.
QAction* MakeTreeNotesAction(QObject* parent, ToviFolderTreePanel& panel);
