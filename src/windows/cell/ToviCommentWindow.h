#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QFrame>

/// The strip that shows the comment of a photograph over its picture, cut to the width of the
/// strip; the tool tip has all of it. It only shows: what a click means is its parent's business.
class TOVI_EXPORT ToviCommentWindow : public QFrame
{
    Q_OBJECT

public:
    ToviCommentWindow();

    /// Puts the strip as a child with the number \p id at \p place of \p parent, on top of what is
    /// there, and shows it if \p text isn't empty. \p position is that of the photograph in the
    /// current array.
    void Create(const CString& text, const QRect& place, QWidget* parent, int id, int position);
    /// Shows \p text from now on. Whether the strip is visible is left to ShowIfAny.
    void SetComment(const CString& text);
    /// Shows the strip if \p visible and if there is a comment, else hides it.
    void ShowIfAny(bool visible);
    int GetPhotoPosition() const { return photoPosition; }
    /// What stands on the strip: the comment as far as it fits.
    const CString& GetShownText() const { return shownText; }

signals:
    /// The left button went down on \p window.
    void Clicked(ToviCommentWindow* window);
    /// \p window was double-clicked; not in slide mode.
    void DoubleClicked(ToviCommentWindow* window);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void Fit();

    CString comment;
    CString shownText;
    int photoPosition = 0;
};
