#pragma once

#include "platform/controls/WenDialog.h"
#include "windows/keys/KeyTable.h"

#include <vector>

class QHBoxLayout;
class QScrollArea;

/// All keys at a glance, group by group. It stays open beside the main window.
class TOVI_EXPORT KeySheet : public WenDialog
{
    Q_OBJECT

public:
    explicit KeySheet(QWidget* parent);

    /// Shows the keys of now.
    void ShowKeys();

signals:
    /// The user wants to change keys.
    void ChangeWanted();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* MakeGroup(KeyGroup group);
    /// With the gap to the next one.
    int WidestGroup() const;
    /// Puts the groups into as many columns as there is room for.
    void Arrange();

    QWidget* page;
    QScrollArea* area;
    QHBoxLayout* columns;
    std::vector<QWidget*> groups;
};
