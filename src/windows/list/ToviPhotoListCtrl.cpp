#include "windows/list/ToviPhotoListCtrl.h"

#include "photos/LabelSlots.h"
#include "platform/controls/GaluWaitMovieDlg.h"
#include "platform/controls/ToolTipText.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "platform/controls/WindowId.h"
#include "review/LabelCaption.h"
#include "windows/cell/ToviCommentWindow.h"
#include "windows/keys/KeySet.h"
#include "windows/list/FloatyPlace.h"
#include "windows/list/PhotoListTable.h"
#include "windows/pictures/PhotoGround.h"
#include "windows/pictures/Pictures.h"
#include "windows/pictures/ThumbnailTile.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace
{
constexpr int idList = 131;
constexpr int idFirstButton = 1105;
constexpr int buttonPictures = 805;
constexpr int buttonPictureSide = 32;
constexpr int columnWidth = 80;
constexpr QSize tileGap(24, 32);
/// How long the floaty waits, in milliseconds, for a selection to settle and for movement to end.
constexpr unsigned shortDelay = 500;
constexpr unsigned longDelay = 1000;

int ButtonId(int label)
{
    return idFirstButton + label;
}

bool MovesNothing(int key)
{
    constexpr int keys[] = {Qt::Key_Tab,     Qt::Key_Backtab, Qt::Key_Shift,
                            Qt::Key_Control, Qt::Key_Alt,     Qt::Key_Meta};
    return std::ranges::find(keys, key) != std::end(keys);
}
} // namespace

ToviPhotoListCtrl::ToviPhotoListCtrl(Look listLook, PhotoListSource& theSource, QWidget* parent)
    : GaluListCtrl(listLook, parent), source(theSource), table(new PhotoListTable(theSource, this))
{
    SetWindowId(this, idList);
    SetModel(table);
    SelectSeveral();
    if (listLook == Look::Icon) {
        SetIconSpacing(ThumbnailTile::Size(), ThumbnailTile::Size() + tileGap);
        PhotoGround::Get().LieUnder(*View(), QPalette::Base);
        View()->setAccessibleName(QStringLiteral("サムネイル一覧"));
    } else {
        SetGridLines(true);
        View()->setAccessibleName(QStringLiteral("写真一覧"));
    }
    CreateFloaty();
    ConnectBase();
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &ToviPhotoListCtrl::ShowFloaty);
    source.OnRowChanged = [this](int row) { ResetItem(row); };
}

ToviPhotoListCtrl::~ToviPhotoListCtrl()
{
    source.OnRowChanged = [](int) {};
}

void ToviPhotoListCtrl::CreateFloaty()
{
    using Kind = WenToolBarButton::Kind;
    floaty = new WenToolBarCtrl(View()->viewport());
    floaty->hide();
    floaty->setAccessibleName(QStringLiteral("付箋"));
    // It stands out from the photographs below.
    floaty->setStyleSheet(QStringLiteral(
        "QToolBar { background: palette(window); border: 1px solid palette(mid); padding: 1px; }"));
    floaty->setIconSize({buttonPictureSide, buttonPictureSide});
    floaty->SetImages(PictureIcons(buttonPictures));
    std::vector<WenToolBarButton> buttons = {{.kind = Kind::Separator}};
    for (int label = 0; label < int(labelCount); ++label) {
        const Kind kind = label == LabelComment ? Kind::Push : Kind::Check;
        buttons.push_back({kind, ButtonId(label), label + int(labelCount)});
    }
    CString badges;
    for (unsigned int label = 0; label < labelCount; ++label)
        badges += CString(LabelBadge(label)) + "|";
    floaty->AddButtons(buttons, badges);
    floaty->installEventFilter(this);
    connect(floaty, &WenToolBarCtrl::Command, this,
            [this](int id) { emit FloatyPressed(static_cast<unsigned int>(id - idFirstButton)); });
}

void ToviPhotoListCtrl::ConnectBase()
{
    View()->installEventFilter(this);
    View()->viewport()->installEventFilter(this);
    for (const QScrollBar* bar : {View()->horizontalScrollBar(), View()->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, [this] { DelayFloaty(longDelay); });
    }
    connect(this, &GaluListCtrl::HeaderDragBegan, this, [this] {
        timer.stop();
        HideFloaty();
        View()->viewport()->update();
    });
    connect(this, &GaluListCtrl::HeaderDragEnded, this, [this] {
        DelayFloaty(longDelay);
        View()->viewport()->update();
    });
    connect(this, &GaluListCtrl::SelectionChanged, this, [this](int row) {
        if (row >= 0) {
            emit ItemSelected(row);
        } else {
            emit SelectionCleared();
        }
    });
    connect(this, &GaluListCtrl::DoubleClicked, this, &ToviPhotoListCtrl::ItemDoubleClicked);
    connect(this, &GaluListCtrl::RightClicked, this, [this](int row) {
        if (row >= 0) emit ItemRightClicked(row);
    });
}

void ToviPhotoListCtrl::SetupThumbListCtrl()
{
    Refill();
}

void ToviPhotoListCtrl::SetupMngmntListCtrl()
{
    GaluWaitMovieDlg wait;
    wait.Create(this);
    wait.Animation(0);
    wait.SetEnableCancel(false);
    wait.Start();
    Refill();
    for (int column = 0; column < table->columnCount(); ++column) {
        SetColumnWidth(column, columnWidth);
    }
    wait.End();
}

void ToviPhotoListCtrl::Refill()
{
    ScheduleFloaty(false);
    rowsTold = {};
    table->Refill();
    const int selected = source.SelectedRow();
    SelectItem(selected < 0 && GetItemCount() > 0 ? 0 : selected);
    ScheduleFloaty(true, shortDelay);
}

void ToviPhotoListCtrl::TellRowsInSight()
{
    const auto place = [this](int row) {
        const QRect rect = GetItemRect(row);
        return CellPlace{rect.x(), rect.y(), rect.width(), rect.height()};
    };
    const RowRange rows = RowsInSight(GetItemCount(), View()->viewport()->height(), place);
    if (std::exchange(rowsTold, rows) != rows) source.ShowRows(rows, GetLook() == Look::Icon);
}

void ToviPhotoListCtrl::SelectItem(int row)
{
    Select(row);
    EnsureVisible(row);
}

void ToviPhotoListCtrl::ResetItem(int row)
{
    table->DropTile(row);
    RedrawItem(row);
}

void ToviPhotoListCtrl::UpdateImageList()
{
    table->DropTiles();
    View()->viewport()->update();
}

void ToviPhotoListCtrl::ScheduleFloaty(bool show, unsigned delay)
{
    floatyOn = show;
    timer.stop();
    HideFloaty();
    if (show) timer.start(static_cast<int>(delay));
}

void ToviPhotoListCtrl::SetButtonState(int label, bool pasted)
{
    floaty->SetButtonImage(ButtonId(label), pasted ? label : label + int(labelCount));
    floaty->CheckButton(ButtonId(label), pasted && label != LabelComment);
}

void ToviPhotoListCtrl::ShowLabelNames(const ToviLabelManager& labels)
{
    for (unsigned int label = 0; label < labelCount; ++label) {
        const CString name = LabelCaption(labels, label);
        const QString tip = WithKey(QtText(name), LabelCommandOf(label));
        floaty->SetButtonText(ButtonId(static_cast<int>(label)), QtText(name),
                              ToolTipText(FromQtText(tip)));
    }
}

void ToviPhotoListCtrl::OnCommentWindowClicked(const ToviCommentWindow* strip)
{
    View()->setFocus();
    Select(strip->GetPhotoPosition());
}

void ToviPhotoListCtrl::OnCommentWindowDblClicked()
{
    emit FloatyPressed(LabelComment);
}

bool ToviPhotoListCtrl::IsKeyIgnored(int key) const
{
    return key == Qt::Key_Right && GetItemCount() > 0 && GetSelectionMark() == GetItemCount() - 1;
}

void ToviPhotoListCtrl::OnKey(int key, int markBefore)
{
    const QPointer<ToviPhotoListCtrl> alive = this;
    GaluListCtrl::OnKey(key, markBefore);
    if (alive) emit Scrolled();
}

bool ToviPhotoListCtrl::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == floaty) return FilterFloaty(*event);
    if (watched == View() && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (!IsKeyIgnored(key) && !MovesNothing(key)) DelayFloaty(longDelay);
        return false;
    }
    if (watched == View() || watched == View()->viewport()) {
        if (event->type() == QEvent::Wheel) DelayFloaty(longDelay);
        // Whatever moves the rows, they are painted.
        if (event->type() == QEvent::Paint && watched == View()->viewport()) TellRowsInSight();
        return false;
    }
    return GaluListCtrl::eventFilter(watched, event);
}

/// What is pressed between the buttons is no business of the items below.
bool ToviPhotoListCtrl::FilterFloaty(QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::ContextMenu:
        event.accept();
        return true;
    default:
        return false;
    }
}

void ToviPhotoListCtrl::resizeEvent(QResizeEvent* event)
{
    GaluListCtrl::resizeEvent(event);
    DelayFloaty(shortDelay);
}

void ToviPhotoListCtrl::DelayFloaty(unsigned delay)
{
    if (floatyOn) ScheduleFloaty(true, delay);
}

void ToviPhotoListCtrl::HideFloaty()
{
    // Else Qt would look for another window to take it.
    if (floaty->isAncestorOf(QApplication::focusWidget())) View()->setFocus();
    floaty->hide();
}

void ToviPhotoListCtrl::ShowFloaty()
{
    const QRect item = GetItemRect(GetSelected());
    const QSize size = floaty->sizeHint();
    const QSize client = View()->viewport()->size();
    const FloatyPlace place =
        PlaceFloaty({item.x(), item.y(), item.width(), item.height()}, LeadingColumnsWidth(),
                    size.width(), size.height(), client.width(), client.height());
    if (GetSelected() < 0 || !place.shown) {
        HideFloaty();
    } else {
        floaty->setGeometry(QRect({place.x, place.y}, size));
        floaty->show();
        floaty->raise();
    }
    emit Scrolled();
}

/// The first two columns of a report, which name the photograph, stay free.
int ToviPhotoListCtrl::LeadingColumnsWidth() const
{
    if (GetLook() == Look::Icon) return 0;
    int width = 0;
    for (int column = 0; column < std::min(2, table->columnCount()); ++column) {
        width += GetColumnWidth(column);
    }
    return width;
}
