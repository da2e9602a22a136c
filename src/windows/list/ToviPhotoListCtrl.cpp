#include "windows/list/ToviPhotoListCtrl.h"

#include "photos/LabelSlots.h"
#include "platform/controls/GaluWaitMovieDlg.h"
#include "platform/controls/ToolTipText.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "platform/controls/WindowId.h"
#include "review/LabelCaption.h"
#include "windows/cell/ToviCommentWindow.h"
#include "windows/keys/KeySet.h"
#include "windows/list/ListColumns.h"
#include "windows/list/PhotoListTable.h"
#include "windows/pictures/PhotoGround.h"
#include "windows/pictures/Pictures.h"
#include "windows/pictures/ThumbnailTile.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QMenu>
#include <QPointer>

#include <utility>

namespace
{
constexpr int idList = 131;
constexpr int idFirstButton = 1105;
constexpr int buttonPictures = 805;
constexpr int buttonPictureSide = 32;
/// As wide as a column becomes by itself.
constexpr int widestColumn = 320;
constexpr QSize tileGap(24, 32);
/// What labels and comments to come need.
int LeastWidth(ListColumn::Kind kind)
{
    constexpr int ofLabels = 64;
    constexpr int ofComment = 120;
    if (kind == ListColumn::Labels) return ofLabels;
    return kind == ListColumn::Comment ? ofComment : 0;
}

int ButtonId(int label)
{
    return idFirstButton + label;
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
    source.OnRowChanged = [this](int row) { ResetItem(row); };
}

ToviPhotoListCtrl::~ToviPhotoListCtrl()
{
    source.OnRowChanged = [](int) {};
}

void ToviPhotoListCtrl::CreateFloaty()
{
    using Kind = WenToolBarButton::Kind;
    floaty = new WenToolBarCtrl(this);
    floaty->setEnabled(false);
    // It is no photograph, and stands on no ground of theirs.
    floaty->setPalette(QApplication::palette());
    floaty->setAutoFillBackground(true);
    layout()->addWidget(floaty);
    floaty->setAccessibleName(QStringLiteral("付箋"));
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
    connect(floaty, &WenToolBarCtrl::Command, this,
            [this](int id) { emit FloatyPressed(static_cast<unsigned int>(id - idFirstButton)); });
}

void ToviPhotoListCtrl::ConnectBase()
{
    View()->viewport()->installEventFilter(this);
    connect(this, &GaluListCtrl::HeaderClicked, this, [this](int column) {
        if (source.ChangeOrder(column)) emit OrderChanged();
    });
    connect(this, &GaluListCtrl::HeaderDragEnded, this, &ToviPhotoListCtrl::KeepWidths);
    connect(this, &GaluListCtrl::HeaderMenuRequested, this, &ToviPhotoListCtrl::ShowHeaderMenu);
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
    GiveWidths();
    const auto [column, isUpwards] = source.Order();
    ShowOrder(column, isUpwards);
    wait.End();
}

void ToviPhotoListCtrl::Refill()
{
    EnableFloaty(false);
    rowsTold = {};
    table->Refill();
    const int selected = source.SelectedRow();
    SelectItem(selected < 0 && GetItemCount() > 0 ? 0 : selected);
    EnableFloaty(true);
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

void ToviPhotoListCtrl::EnableFloaty(bool enable)
{
    // Else Qt would look for another window to take it.
    if (!enable && floaty->isAncestorOf(QApplication::focusWidget())) View()->setFocus();
    floaty->setEnabled(enable && GetSelected() >= 0);
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
    if (watched == View()->viewport()) {
        // Whatever moves the rows, they are painted.
        if (event->type() == QEvent::Paint) TellRowsInSight();
        return false;
    }
    return GaluListCtrl::eventFilter(watched, event);
}

/// A column that the user has given a width has it, the others are fitted to what is in sight.
void ToviPhotoListCtrl::GiveWidths()
{
    givenWidths.clear();
    const std::vector<ListColumn>& columns = table->Columns();
    for (int column = 0; column < table->columnCount(); ++column) {
        const CString& title = columns[static_cast<std::size_t>(column)].title;
        if (const std::optional<int> width = ListColumnMemory::Width(title)) {
            SetColumnWidth(column, *width);
        } else {
            FitColumn(column, widestColumn);
            const int least = LeastWidth(columns[static_cast<std::size_t>(column)].kind);
            if (GetColumnWidth(column) < least) SetColumnWidth(column, least);
        }
        givenWidths.push_back(GetColumnWidth(column));
    }
}

void ToviPhotoListCtrl::KeepWidths()
{
    View()->viewport()->update();
    for (std::size_t i = 0; i < givenWidths.size(); ++i) {
        const int width = GetColumnWidth(static_cast<int>(i));
        if (std::exchange(givenWidths[i], width) != width) {
            ListColumnMemory::SetWidth(table->Columns()[i].title, width);
        }
    }
}

void ToviPhotoListCtrl::ShowHeaderMenu(const QPoint& place)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const char* title : leadingColumns) {
        QAction* const action = menu->addAction(QString::fromUtf8(title));
        action->setCheckable(true);
        action->setChecked(ListColumnMemory::IsShown(title));
        connect(action, &QAction::toggled, this, [this, title](bool shown) {
            ListColumnMemory::SetShown(title, shown);
            SetupMngmntListCtrl();
        });
    }
    menu->popup(place);
}
