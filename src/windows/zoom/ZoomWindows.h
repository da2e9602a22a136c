#pragma once

#include "windows/zoom/ZoomMemory.h"

#include <QObject>
#include <QPointer>

#include <vector>

class ToviData;
class ToviMultiDlg;

/// The zoom windows of a panel: at most six, of which those that aren't fixed follow the selection,
/// and what is remembered of them for the next one.
class TOVI_EXPORT ZoomWindows : public QObject
{
    Q_OBJECT

public:
    /// \p thePanel outlives this.
    explicit ZoomWindows(QWidget& thePanel);
    ~ZoomWindows() override;

    /// Shows the selected photograph of \p data, in the window that has it, in the first one that
    /// follows, or in a new one. Tells the user when there are too many.
    void Show(ToviData& data);
    /// The same if a window follows the selection. Without photographs on show it is emptied.
    void Follow(ToviData& data);
    /// Shows the items and the titles of the photographs anew.
    void RefreshInfo();
    /// Shows their labels anew, and which one is selected.
    void RefreshLabels();
    /// Lets the keys of now count in all.
    void ApplyKeys();
    /// Places all windows side by side.
    void Arrange();
    void CloseAll();

    const std::vector<ToviMultiDlg*>& All() const { return windows; }
    /// Gives the keys to the next window; behind the last one to that of the panel.
    void ActivateNext();

signals:
    /// The user wants the next (1) or the previous (-1) photograph selected.
    void StepRequested(int step);
    /// The user wants \p label of the photograph with the index \p photo changed.
    void LabelRequested(int photo, unsigned int label);
    void LabelsRemovalRequested(int photo);

private:
    ToviMultiDlg& Create();
    void Connect(ToviMultiDlg& window);
    void Place(ToviMultiDlg& window, std::size_t index);
    void Close(ToviMultiDlg& window);
    void Discard(ToviMultiDlg& window);
    void Remember(const ToviMultiDlg& window);
    void Raise(ToviMultiDlg& window) const;

    QWidget& panel;
    ZoomMemory memory;
    std::vector<ToviMultiDlg*> windows;
    /// Those that aren't gone yet.
    std::vector<QPointer<ToviMultiDlg>> closed;
    /// The photo index of the last request. What isn't another one leaves the windows where they
    /// are.
    int shownLast = -1;
};
