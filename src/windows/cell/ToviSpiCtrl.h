#pragma once

#include "delivery/ToviData.h"

#include <QTimer>
#include <QWidget>

class GaluDSplitter;
struct LoadedPicture;
struct LoadKey;
class LumImgWnd;
class QLabel;
class QPlainTextEdit;
class ToviControlValueTable;
class ToviNamePlate;
class ToviSpiListCtrl;

/// One cell of a page: a photograph with its name plate, the list of its items and, below that, its
/// control values. It shows a position of the current array, with what the FileLoader has of it:
/// the full picture, or the thumbnail and a moment later the full picture. It lets go of the
/// picture when it shows another one or none.
///
/// What the user does is told by signals. The panel answers them; the cell itself changes nothing.
class TOVI_EXPORT ToviSpiCtrl : public QWidget
{
    Q_OBJECT

public:
    /// An empty cell with the number \p id. \p theData and \p setting outlive it; the host's
    /// document isn't needed.
    ToviSpiCtrl(ToviData* theData, CDocument* document, const ToviPhotoCtrlVisualSetting* setting,
                int id, QWidget* parent);
    ~ToviSpiCtrl() override;

    /// Shows the photograph at the current position \p index; nothing if there is none.
    void SetPhoto(int index);
    /// Shows nothing and releases the picture.
    void ClearPhoto();
    /// The current position on show, or -1.
    int GetPhotoIndex() const { return photoIndex; }
    /// The photograph at the current position \p index is the one on show.
    bool Shows(int index) const;

    /// Fills the list and the control values anew.
    void FillInfo();
    /// Places the children, with room for a comment strip over the photograph if one is due.
    void LayoutChildren();
    /// Gives the label buttons the names of the labels.
    void ApplyLabelNames();
    /// Shows which labels the photograph has.
    void UpdateLabelButtons();
    /// Moves the focus to the child of the number \p childId, or what stands in its place.
    void FocusChild(int childId);
    /// Lets go of a photograph that the user drags.
    void ClearAnchor();
    /// Draws the name plate anew, in the colours of the selected photograph if this one is.
    /// \p erase isn't read: all of it is drawn in any case.
    virtual void InvalidateNamePlate(bool erase = true);
    /// The size of the photograph's window.
    QSize GetImageSize() const;

    /// What a flipped button of \p label does: see the signals.
    void OnLabelClicked(int label);
    /// A comment strip of this cell was clicked.
    void OnCommentWindowClicked(QWidget* strip);
    /// One was double-clicked: as the button of the comment label.
    void OnCommentWindowDblClicked(QWidget* strip);

signals:
    /// The user has turned to this cell, by mouse or with the focus.
    void Clicked(int windowId);
    void DoubleClicked(int windowId);
    void RightClicked(int windowId);
    /// A key (a Qt::Key) that the panel is to act on.
    void KeyPressed(int qtKey);
    /// For the comment label, whether pasted or not: the user wants to edit the comment.
    void PasteLabelRequested(unsigned int label, ToviSpiCtrl* cell);
    void RemoveLabelRequested(unsigned int label, ToviSpiCtrl* cell);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreatePicture();
    void CreateInformation();
    void ConnectChildren();
    void WatchChildren();

    ToviPhoto* Photo() const { return data->GetPhoto(photoIndex); }
    ToviPhoto* ShownPhoto() const { return data->GetPhotoActualPhotoArray(actualIndex); }
    void ReleasePicture();
    void TellWishes();
    void ShowPicture(ToviPhoto& photo);
    void ShowFetched(const std::shared_ptr<const LoadedPicture>& picture);
    void OnArrived(const LoadKey& key);
    void FillItems(ToviPhoto& photo);
    void FillValues(const ToviPhoto& photo);
    void ShowPlate(ToviPhoto& photo);
    void ShowCheckResult(ToviPhoto& photo);

    void OnClicked() { emit Clicked(windowId); }
    void OnDoubleClicked() { emit DoubleClicked(windowId); }
    void OnRightClicked();
    void OnChildFocused(const QObject* child);
    bool ForwardMoveKey(const QKeyEvent& event, bool plainToo);
    bool KeepKey(const QObject* child, QKeyEvent& event) const;

    ToviData* data;
    const ToviPhotoCtrlVisualSetting* visualSetting;
    int windowId;
    int photoIndex = -1;
    /// The photo index of what is on show, or -1.
    int actualIndex = -1;
    /// False when the full picture of what is on show couldn't be loaded.
    bool imageOk = true;
    /// The picture on show, or null.
    std::shared_ptr<const LoadedPicture> shown;
    bool fullShown = false;
    /// The full picture is wanted, even where it must be read first.
    bool fullWanted = false;
    QTimer loadTimer;
    QTimer noteTimer;

    LumImgWnd* imageWnd;
    QLabel* failPlate;
    ToviNamePlate* namePlate;
    GaluDSplitter* splitter;
    ToviSpiListCtrl* infoList;
    ToviControlValueTable* valueTable;
    /// The control values as they were written, in the place of a table that has no rows.
    QPlainTextEdit* valueEdit;
};
