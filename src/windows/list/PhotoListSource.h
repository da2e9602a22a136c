#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"
#include "review/PhotoReview.h"
#include "windows/list/ListColumns.h"

#include <QImage>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

struct RowRange;

/// The picture of a row.
struct ListTile
{
    QImage image;
    /// False while something is to come. OnRowChanged tells when.
    bool isWhole = true;
};

/// What a list of photographs shows, by row: the position in the current array. A list asks for the
/// rows in sight alone, each time it draws one; no answer waits for a file.
class TOVI_EXPORT PhotoListSource
{
public:
    virtual ~PhotoListSource() = default;

    /// The calls of a refill, which read no file: the number of rows, the titles of the report's
    /// columns, and the selected row (-1: none).
    virtual int Count() const = 0;
    virtual std::vector<ListColumn> Columns() = 0;
    virtual int SelectedRow() const = 0;

    /// The column by which the rows are sorted, or -1, and whether upwards.
    virtual std::pair<int, bool> Order() = 0;
    /// The user wants another order by \p column. False where it can't be sorted by that one.
    virtual bool ChangeOrder(int column) = 0;

    /// The labels of a row, and how they are called.
    virtual LabelSet Labels(int row) = 0;
    virtual CString LabelNames(int row) = 0;
    /// The text below a thumbnail.
    virtual CString Caption(int row) = 0;
    /// The text of a report's cell; empty for a column that doesn't exist.
    virtual CString Text(int row, int column) = 0;
    /// The state icon of a report's row: 0 for none, 1 unaltered, 2 altered. Nothing while that
    /// isn't known.
    virtual std::optional<int> StateImage(int row) = 0;
    /// The thumbnail, of \p scale device pixels to each pixel of the layout. A null image when
    /// there is none: it is asked for again at the next drawing.
    virtual ListTile Tile(int row, double scale) = 0;

    /// The rows \p rows are in sight from now on, with tiles or, without \p withTiles, with texts:
    /// what they show is to be fetched.
    virtual void ShowRows(const RowRange& rows, bool withTiles) = 0;
    /// Called when \p row of these shows something else than before.
    std::function<void(int row)> OnRowChanged = [](int) {};
};
