#pragma once

#include "platform/controls/WenDialog.h"
#include "platform/text/Text.h"
#include "windows/keys/FrameCommand.h"
#include "windows/zoom/ZoomView.h"

#include <functional>
#include <vector>

class GaluDSplitter;
class QBoxLayout;
class QSlider;
class ToviData;
class ToviNamePlate;
class ToviTabBaseWnd;
class WenToolBarCtrl;
class ZoomBar;

/// A window that shows one photograph large, with what there is to know of it. It is turned and
/// made lighter on a working copy, which can be saved. A window that isn't fixed follows the
/// selection.
///
/// It asks its owner by signals and changes nothing itself. The document outlives what it shows.
class TOVI_EXPORT ToviMultiDlg : public WenDialog
{
    Q_OBJECT

public:
    /// \p showsInfo: with the information pane.
    explicit ToviMultiDlg(bool showsInfo);
    ~ToviMultiDlg() override;

    /// Shows the photograph of \p data with the photo index \p index.
    void SetPhoto(ToviData& data, int index);
    /// Shows nothing.
    void ClearPhoto();
    /// Of the photograph on show, -1 for none.
    int GetPhotoIndex() const { return photoIndex; }
    /// Its image file; empty for none.
    const CString& GetPath() const { return path; }
    /// \p other is its image file; letter case doesn't count.
    bool IsSamePhoto(const char* other) const { return EqualNoCase(path, other); }

    /// The width of the photograph, at least 60.
    int GetSplitterPos() const;
    void SetSplitterPos(int pos);
    int GetTabIndex() const;
    void SetTabIndex(int index);
    void SetInfoVisible(bool visible);
    bool IsInfoVisible() const { return infoVisible; }
    void SetKeepsView(bool keeps);
    bool IsFixed() const { return isFixed; }
    void SetFixed(bool fixed);
    /// Fills the information and the title anew.
    void RefreshInfo();
    /// Shows the labels, their names and the selection anew.
    void RefreshLabels();

    /// Lets the keys of now count (see CurrentKeys).
    void ApplyKeys();

    ZoomView& View() const { return *view; }

signals:
    void CloseRequested();
    void CloseAllRequested();
    void ArrangeRequested();
    /// The user has shown or hidden the information, or wants the view kept or not.
    void InfoChanged(bool visible);
    void KeepsViewChanged(bool keeps);
    /// The user wants the next (1) or the previous (-1) photograph selected.
    void StepRequested(int step);
    /// The user has pressed the button of \p label.
    void LabelRequested(int photo, unsigned int label);
    void LabelsRemovalRequested(int photo);

protected:
    void OnOK() override {}
    void OnCancel() override { emit CloseRequested(); }
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreateBars();
    QWidget* CreateBrightness();
    QWidget* CreatePhoto();
    void ConnectKeys();
    void AddCommand(FrameCommand command, const std::function<void()>& operation);
    void LayOut();

    ToviPhoto* Photo() const;
    PhotoNeighbours FindNeighbours() const;
    void TellWishes();
    void OnArrived(const LoadKey& key);
    void ShowCheckResult();
    void OnCommand(int id);
    void OnBrightness(int position);
    void Revert();
    void Save();
    void EnableCommands();
    void NoteChange();

    ToviData* data = nullptr;
    int photoIndex = -1;
    CString path;
    bool isFixed = false;
    bool infoVisible;
    /// Of the panes when both are shown.
    int splitterPos = 0;
    /// Something was turned, made lighter or taken back since the photograph was loaded.
    bool canRevert = false;
    /// What has a key.
    std::vector<std::pair<FrameCommand, QAction*>> commands;
    WenToolBarCtrl* imageToolBar;
    WenToolBarCtrl* windowToolBar;
    QBoxLayout* barRow;
    QSlider* slider;
    ZoomView* view;
    ToviNamePlate* plate;
    ToviTabBaseWnd* info;
    ZoomBar* zoomBar;
    GaluDSplitter* splitter;
};
