#pragma once

#include "review/ToviLabelManager.h"
#include "windows/panel/LabelMenuItems.h"

#include <QMenu>

/// The menu of a photograph: shows it large, pastes and removes its labels.
class TOVI_EXPORT ToviPopUpMenu : public QMenu
{
    Q_OBJECT

public:
    /// A menu with the names of \p labels.
    ToviPopUpMenu(const ToviLabelManager& labels, QWidget* parent);

    void EnableItems(const LabelMenuItems& items);

signals:
    /// The user has chosen the command \p id, one of LabelMenuId.
    void CommandChosen(unsigned int id);

private:
    QAction* AddCommand(QMenu* menu, const QString& text, unsigned int id);

    std::array<QAction*, labelCount> pasteItems;
    std::array<QAction*, labelCount> removeItems;
    QAction* removeAllItem;
};
