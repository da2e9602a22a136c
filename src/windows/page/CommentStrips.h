#pragma once

#include "windows/cell/ToviCommentWindow.h"
#include "windows/page/CellPage.h"

#include <QPointer>

#include <functional>
#include <map>
#include <vector>

/// The comment strips of the photographs on show, a slot for each. A slot may be empty: only what
/// is in sight has a strip. One whose photograph has no comment stays hidden.
class TOVI_EXPORT CommentStrips : public QObject
{
    Q_OBJECT

public:
    /// Takes all strips away and has \p count empty slots from now on.
    void Reset(int count);
    int Count() const { return count; }

    /// The strip in \p slot, or null. A slot that doesn't exist throws InvalidArgument.
    ToviCommentWindow* At(int slot) const;
    /// Puts a strip over the photograph of each cell that holds one.
    void PlaceOnCells(const CellPage& cells, const ToviData& data);
    /// Puts a strip over each item that is in sight on the \p viewport of a list of the current
    /// array, and takes the others away. \p placeOf gives the place of an item on it, in sight or
    /// not; none is above an earlier one.
    void PlaceOnList(QWidget* viewport, const std::function<QRect(int)>& placeOf,
                     const ToviData& data);
    void HideAll();

signals:
    void Clicked(ToviCommentWindow* strip);
    void DoubleClicked(ToviCommentWindow* strip);

private:
    ToviCommentWindow* AtOrNew(int slot, QWidget* parent, const ToviData& data, int position);
    void Remove(int slot);
    /// The slots with a strip, in order.
    std::vector<int> Filled() const;

    /// A strip may go with the window that it lies on.
    std::map<int, QPointer<ToviCommentWindow>> strips;
    int count = 0;
};
