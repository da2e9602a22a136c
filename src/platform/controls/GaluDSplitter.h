#pragma once

#include "platform/text/Export.h"

#include <QSplitter>

/// Two panes with a movable division between them, by mouse or, once Tab has led there, by arrow
/// keys, Home and End. splitterMoved tells what the user moves.
class TOVI_EXPORT GaluDSplitter : public QSplitter
{
    Q_OBJECT

public:
    /// The panes stand side by side (Qt::Horizontal) or one above the other (Qt::Vertical).
    explicit GaluDSplitter(Qt::Orientation panes, QWidget* parent = nullptr);

    /// Puts \p pane into place 0 or 1; place 0 is filled first. The one that stood there, if it is
    /// another, is hidden and becomes a child of the splitter's parent.
    void SetPane(int place, QWidget* pane);
    QWidget* GetPane(int place) const { return widget(place); }
    /// A hidden pane leaves all the room to the other.
    void ShowPane(int place, bool show);

    /// The smallest size of each pane along the splitter, in pixels.
    void SetMinimums(int first, int second);

    /// The size of the first pane, in pixels.
    int GetPosition() const;
    /// Gives the first pane \p position pixels, which it keeps on resizing. A negative position
    /// gives that many pixels to the second pane, which then keeps them. May come before the
    /// splitter has a size.
    void SetPosition(int position);

protected:
    QSplitterHandle* createHandle() override;

private:
    int Along(const QSize& size) const;
};
