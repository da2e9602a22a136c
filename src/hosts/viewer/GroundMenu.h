#pragma once

class QMenu;
class QWidget;

/// The menu from which the user chooses what photographs stand on, owned by \p parent. The choice
/// is kept in the profile, and taken up from there.
QMenu* MakeGroundMenu(QWidget* parent);
