#include "platform/controls/GaluListCtrl.h"

#include "platform/controls/GaluFont.h"
#include "platform/controls/GaluListDelegates.h"
#include "platform/controls/IconGrid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

/// A view of Qt's that tells its list of keys, and doesn't look through all rows for what is typed.
template <class Base>
class GaluListCtrl::Hooked : public Base
{
public:
    explicit Hooked(GaluListCtrl* owner) : Base(owner), list(owner) {}

    void keyboardSearch(const QString&) override {}

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const int key = event->key();
        if (list->IsKeyIgnored(key)) return;
        const int before = list->GetSelectionMark();
        Base::keyPressEvent(event);
        const QPointer<GaluListCtrl> alive = list;
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (isEnter && list->GetSelected() >= 0) emit list->DoubleClicked(list->GetSelected());
        if (alive) list->OnKey(key, before);
    }

    void mousePressEvent(QMouseEvent* event) override
    {
        const int row = Base::indexAt(event->pos()).row();
        // A click beside the items would take the selection off them, several at once.
        const bool keepsSelection =
            row < 0 && Base::selectionMode() == QAbstractItemView::ExtendedSelection;
        if (!keepsSelection) Base::mousePressEvent(event);
        if (event->button() == Qt::LeftButton) emit list->Clicked(row);
        if (event->button() == Qt::RightButton) emit list->RightClicked(row);
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        const int row = Base::indexAt(event->pos()).row();
        Base::mouseDoubleClickEvent(event);
        if (event->button() == Qt::LeftButton && row >= 0) emit list->DoubleClicked(row);
    }

    void contextMenuEvent(QContextMenuEvent* event) override
    {
        if (event->reason() == QContextMenuEvent::Keyboard) {
            emit list->RightClicked(list->GetSelected());
        }
    }

private:
    GaluListCtrl* list;
};

class GaluListCtrl::IconList : public Hooked<QListView>
{
public:
    using Hooked::Hooked;

    void doItemsLayout() override
    {
        Hooked::doItemsLayout();
        if (std::exchange(keepCurrentInSight, false)) scrollTo(currentIndex());
    }

protected:
    /// In another width the items stand elsewhere; a current one that is in sight stays there.
    void resizeEvent(QResizeEvent* event) override
    {
        const QRect before({0, 0}, event->oldSize());
        if (before.intersects(visualRect(currentIndex()))) keepCurrentInSight = true;
        Hooked::resizeEvent(event);
    }

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers) override
    {
        if (model() == nullptr) return {};
        const int target = Grid().Target(MoveOf(action), currentIndex().row());
        return model()->index(target, 0);
    }

private:
    static IconGrid::Move MoveOf(CursorAction action)
    {
        switch (action) {
        case MoveLeft:
        case MovePrevious:
            return IconGrid::Move::Left;
        case MoveRight:
        case MoveNext:
            return IconGrid::Move::Right;
        case MoveUp:
            return IconGrid::Move::Up;
        case MoveDown:
            return IconGrid::Move::Down;
        case MovePageUp:
            return IconGrid::Move::PageUp;
        case MovePageDown:
            return IconGrid::Move::PageDown;
        case MoveHome:
            return IconGrid::Move::Home;
        case MoveEnd:
            break;
        }
        return IconGrid::Move::End;
    }

    /// As the items stand, which the view alone knows.
    IconGrid Grid() const
    {
        IconGrid grid;
        grid.count = model()->rowCount();
        const int top = visualRect(model()->index(0, 0)).top();
        while (grid.columns < grid.count &&
               visualRect(model()->index(grid.columns, 0)).top() == top) {
            ++grid.columns;
        }
        grid.lines = std::max(1, viewport()->height() / std::max(1, gridSize().height()));
        return grid;
    }

    bool keepCurrentInSight = false;
};

GaluListCtrl::GaluListCtrl(Look listLook, QWidget* parent) : QWidget(parent), look(listLook)
{
    setFont(GaluFont::MsPGothic9pt());
    if (look == Look::Report) {
        SetUpReport();
    } else {
        SetUpIcons();
    }
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (const QScrollBar* bar : {view->horizontalScrollBar(), view->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &GaluListCtrl::Scrolled);
    }
    setFocusProxy(view);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
}

void GaluListCtrl::SetUpReport()
{
    report = new Hooked<QTreeView>(this);
    view = report;
    report->setRootIsDecorated(false);
    report->setItemsExpandable(false);
    report->setUniformRowHeights(true);
    report->setAllColumnsShowFocus(true);
    report->setItemDelegate(new ReportDelegate(report));
    report->header()->setSectionsMovable(false);
    report->header()->setStretchLastSection(false);
    report->header()->setMinimumSectionSize(0);
    // A column is fitted to the rows in sight.
    report->header()->setResizeContentsPrecision(0);
    report->header()->viewport()->installEventFilter(this);
    report->header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(report->header(), &QHeaderView::customContextMenuRequested, this,
            [this](const QPoint& place) {
                emit HeaderMenuRequested(report->header()->viewport()->mapToGlobal(place));
            });
    connect(report->header(), &QHeaderView::sectionClicked, this, &GaluListCtrl::HeaderClicked);
    connect(report->header(), &QHeaderView::sectionResized, this, [this] {
        if (headerPressed && !headerDragged) emit HeaderDragBegan();
        headerDragged = headerPressed;
    });
}

void GaluListCtrl::SetUpIcons()
{
    icons = new IconList(this);
    view = icons;
    icons->setFlow(QListView::LeftToRight);
    icons->setWrapping(true);
    icons->setResizeMode(QListView::Adjust);
    icons->setUniformItemSizes(true);
    icons->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    icons->setItemDelegate(new IconDelegate(icons));
}

void GaluListCtrl::SetModel(QAbstractItemModel* model)
{
    view->setModel(model);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { emit SelectionChanged(GetSelected()); });
}

int GaluListCtrl::GetItemCount() const
{
    return view->model() != nullptr ? view->model()->rowCount() : 0;
}

int GaluListCtrl::GetSelected() const
{
    const QItemSelectionModel* const model = view->selectionModel();
    if (model == nullptr || !model->hasSelection()) return -1;
    if (model->isSelected(view->currentIndex())) return view->currentIndex().row();
    int first = GetItemCount();
    for (const QItemSelectionRange& range : model->selection())
        first = std::min(first, range.top());
    return first;
}

void GaluListCtrl::SelectSeveral()
{
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
}

std::vector<int> GaluListCtrl::GetSelectedRows() const
{
    std::vector<int> rows;
    if (view->selectionModel() == nullptr) return rows;
    for (const QItemSelectionRange& range : view->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
    }
    // A row of several columns may be in several ranges.
    std::ranges::sort(rows);
    rows.erase(std::ranges::unique(rows).begin(), rows.end());
    return rows;
}

int GaluListCtrl::GetSelectedCount() const
{
    return static_cast<int>(GetSelectedRows().size());
}

int GaluListCtrl::GetSelectionMark() const
{
    return view->currentIndex().row();
}

void GaluListCtrl::Select(int row)
{
    if (view->selectionModel() == nullptr) return;
    view->selectionModel()->setCurrentIndex(Index(row), QItemSelectionModel::ClearAndSelect |
                                                            QItemSelectionModel::Rows);
}

void GaluListCtrl::EnsureVisible(int row)
{
    view->scrollTo(Index(row));
}

QRect GaluListCtrl::GetItemRect(int row) const
{
    const QModelIndex index = Index(row);
    if (!index.isValid()) return {};
    QRect place = view->visualRect(index);
    if (report != nullptr) {
        place.setLeft(-report->header()->offset());
        place.setWidth(report->header()->length());
    }
    return place;
}

void GaluListCtrl::RedrawItem(int row)
{
    view->viewport()->update(GetItemRect(row));
}

void GaluListCtrl::SetColumnWidth(int column, int width)
{
    report->setColumnHidden(column, width <= 0);
    if (width > 0) report->setColumnWidth(column, width);
}

int GaluListCtrl::GetColumnWidth(int column) const
{
    return report->columnWidth(column);
}

void GaluListCtrl::ShowOrder(int column, bool ascending)
{
    QHeaderView& header = *report->header();
    header.setSectionsClickable(true);
    header.setHighlightSections(false);
    header.setSortIndicatorShown(column >= 0);
    if (column < 0) return;
    header.setSortIndicator(column, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void GaluListCtrl::FitColumn(int column, int most)
{
    report->resizeColumnToContents(column);
    if (report->columnWidth(column) > most) report->setColumnWidth(column, most);
}

void GaluListCtrl::SetGridLines(bool show)
{
    static_cast<ReportDelegate*>(report->itemDelegate())->gridLines = show;
    report->viewport()->update();
}

void GaluListCtrl::SetIconSpacing(QSize imageSize, QSize spacing)
{
    auto* const delegate = static_cast<IconDelegate*>(icons->itemDelegate());
    delegate->image = imageSize;
    delegate->spacing = spacing;
    icons->setIconSize(imageSize);
    icons->setGridSize(spacing);
}

bool GaluListCtrl::IsKeyIgnored(int) const
{
    return false;
}

void GaluListCtrl::OnKey(int key, int markBefore)
{
    emit KeyPressed(key, markBefore);
}

bool GaluListCtrl::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) headerPressed = true;
    if (event->type() == QEvent::MouseButtonRelease) {
        headerPressed = false;
        if (std::exchange(headerDragged, false)) emit HeaderDragEnded();
    }
    return QWidget::eventFilter(watched, event);
}

QModelIndex GaluListCtrl::Index(int row) const
{
    return view->model() != nullptr ? view->model()->index(row, 0) : QModelIndex();
}
