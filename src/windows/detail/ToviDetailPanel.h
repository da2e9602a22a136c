#pragma once

#include "items/ToviItemShowSettings.h"
#include "windows/panel/ToviPanel.h"

#include <QTimer>

class GaluDSplitter;
class ToviImageWnd;
class ToviTabBaseWnd;

/// Shows the selected photograph large, with its facts beside it. While it is not in sight it reads
/// nothing: it only notes that something has changed.
class TOVI_EXPORT ToviDetailPanel : public ToviPanel
{
    Q_OBJECT

public:
    /// The section and entry of the profile store: the width of the right pane, 0 for half.
    static constexpr const char* DetailPanelSplitterSection_ = "DetailPanelSplitter";
    static constexpr const char* ImgWndWidthEntry_ = "ImgWndWidth";

    ToviDetailPanel();
    /// Writes the width of the right pane.
    ~ToviDetailPanel() override;

    void OnUpdate(CWnd* sender, ToviData::UpdateHint hint, CObject* object) override;
    void OnPostAttachData() override;
    /// To be called after the first layout: puts the splitter where it was when the panel was last
    /// closed.
    void AdjustSplitter() const;

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    bool IsInSight() const { return visible && isVisible(); }
    /// Takes over whether the setting shows the panel.
    void Visible(bool show);
    void OnVisibleChanged();
    void OnUpdateTimer();
    void OnPhotoChanged();
    void OnUpdateSetup();
    void UpdateContent();
    void ShowProperties();
    void OnInformation();
    void OnUpdateInformation();
    void ShowInformation(bool show);
    void SavePhoto();
    ToviPhoto* SelectedPhoto() const;

    ToviImageWnd* imageWnd;
    ToviTabBaseWnd* tabWnd;
    GaluDSplitter* splitter;
    bool visible = false;
    /// A change came in while the panel was out of sight.
    bool stale = false;
    /// Runs out as soon as the changes that come together are over.
    QTimer updateTimer;
    /// What the tabs show.
    ToviItemShowSettings shownItems;
    /// The splitter's place, which a hidden right pane keeps; -1 before the first layout.
    mutable int position = -1;
    int lastWidth = 0;
};
