#pragma once

#include <QLabel>

class QStatusBar;
class ViewerDocument;

/// What the status bar tells of the inspection: how many photographs are on show, how many are OK,
/// NG and 未検査, and whether all of it is saved.
class ReviewBar
{
public:
    explicit ReviewBar(QStatusBar* bar);

    void Show(const ViewerDocument& document);
    /// Tells how many photographs are selected, where they are several.
    void ShowSelected(int count);

private:
    QLabel* selected;
    QLabel* shown;
    QLabel* ok;
    QLabel* ng;
    QLabel* unchecked;
    QLabel* saved;
};
