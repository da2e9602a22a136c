#pragma once

#include "windows/list/PhotoListContent.h"
#include "windows/page/CellPage.h"
#include "windows/page/CommentStrips.h"
#include "windows/page/PagesAhead.h"

class ToviPhotoListCtrl;

/// What shows the photographs in the present display mode: a page of cells or one list, and the
/// comment strips over them. It decides nothing: what the user does is told by signals.
class TOVI_EXPORT PhotoViews : public QObject
{
    Q_OBJECT

public:
    /// Nothing yet. The windows will be children of \p theParent; it and \p theSetting outlive
    /// this, and so does the host's document, which may be null.
    PhotoViews(QWidget& theParent, const ToviPhotoCtrlVisualSetting& theSetting,
               CDocument* theHost);
    ~PhotoViews() override;

    /// Makes the windows of the setting's mode for \p document: empty cells, or the list.
    void Create(ToviData& document);
    /// Releases the pictures and takes all away; \p document is let go of.
    void Destroy();

    /// No cells in a list mode.
    CellPage& Cells() { return cells; }
    const CellPage& Cells() const { return cells; }
    /// Null in a paged mode.
    ToviPhotoListCtrl* List() const { return list.get(); }

    /// Shows the page of photographs from the position \p first on, in a paged mode.
    void ShowPage(int first);
    /// Fills the list anew, if there is one.
    void RefillList();
    /// Gives the windows their places in the parent.
    void Place();
    /// Moves the focus to the photograph at \p position, or to the first on the page.
    void Focus(int position);
    /// The place of the photograph at \p position on the screen.
    QRect PlaceOf(int position) const;

    /// Shows the labels of the photograph at \p position anew, or of all.
    void ShowLabels(int position);
    void ShowAllLabels();
    /// The same on the name plates alone.
    void UpdateNamePlate();
    /// Calls the labels by their names and keys of now.
    void ShowLabelNames();
    /// Lets the floating tool bar, if there is one, show the labels of the selected photograph.
    void EnableFloaty();
    /// The same, and shows the tool bar after a while, or hides it.
    void ShowFloaty(bool show);

    /// Shows \p text as the comment of the photograph at \p index: its position in a list, its
    /// cell on a page. An index that isn't on show throws InvalidArgument.
    void ShowComment(int index, const CString& text);
    /// Takes all strips away.
    void InitializeCommentWindow() { strips.Reset(0); }
    /// The same; from then on there is an empty slot for each photograph on show.
    void CreateCommentWindow();
    /// Makes and places the strips that are due.
    void ReCalcCommentWindow();
    void HideStrips() { strips.HideAll(); }

signals:
    /// Of the cell \p index.
    void CellClicked(int index);
    void CellDoubleClicked(int index);
    void CellRightClicked(int index);
    void CellKeyPressed(int qtKey);
    void PasteLabelRequested(unsigned int label, ToviSpiCtrl* cell);
    void RemoveLabelRequested(unsigned int label, ToviSpiCtrl* cell);
    /// Of the list; a row is a position, -1 for none.
    void ItemSelected(int row);
    void ItemDoubleClicked(int row);
    void ItemRightClicked(int row);
    void ListKeyPressed(int qtKey, int markBefore);
    void FloatyPressed(unsigned int label);
    void OrderChanged();

private:
    std::unique_ptr<ToviSpiCtrl> MakeCell(int index);
    void CreateList();
    void OnStripClicked(ToviCommentWindow* strip);
    void OnStripDoubleClicked(ToviCommentWindow* strip);

    QWidget& parent;
    const ToviPhotoCtrlVisualSetting& setting;
    CDocument* host;
    ToviData* data = nullptr;
    CellPage cells;
    PagesAhead ahead;
    PhotoListContent listContent;
    std::unique_ptr<ToviPhotoListCtrl> list;
    CommentStrips strips;
};
