#include "windows/cell/ToviNamePlate.h"

#include "platform/controls/GaluMultiStatusButton.h"
#include "platform/controls/ToolTipText.h"
#include "platform/controls/WindowId.h"
#include "review/LabelCaption.h"
#include "windows/cell/CellChild.h"
#include "windows/cell/CellRect.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/keys/KeySet.h"
#include "windows/pictures/Pictures.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

namespace
{
constexpr QColor plainColor(226, 208, 179);
constexpr QColor selectedColor(114, 70, 46);
constexpr int drawingMarks = 806;
constexpr int checkMarks = 807;
constexpr int textGap = 3;

GaluMultiStatusButton* MakeMark(int pictures, std::initializer_list<const char*> names, int id,
                                QWidget* parent)
{
    std::vector<GaluMultiStatusButton::Status> statuses;
    const std::vector<QIcon> images = PictureIcons(pictures);
    for (const char* name : names) statuses.push_back({images[statuses.size()], name});
    const int side = PictureSize(PicturesOf(pictures).front()).height();
    auto* const mark = new GaluMultiStatusButton(std::move(statuses), side, parent);
    mark->SetFlat(true);
    mark->setEnabled(false);
    SetWindowId(mark, id);
    return mark;
}
} // namespace

ToviNamePlate::ToviNamePlate(QWidget* parent)
    : QWidget(parent),
      photoButton(MakeMark(drawingMarks, {"参考図なし", "参考図あり"}, idPhotoMark, this)),
      checkButton(
          MakeMark(checkMarks,
                   {"画像加工検知：結果なし", "画像加工検知：加工なし", "画像加工検知：加工あり"},
                   idCheckMark, this))
{
    SetWindowId(this, idNamePlate);
    setFocusPolicy(Qt::TabFocus);
    photoButton->installEventFilter(this);
    checkButton->installEventFilter(this);
    for (unsigned int label = 0; label < labelCount; ++label) {
        buttons[label] = new ToviLabelButton(label, this);
        connect(buttons[label], &ToviLabelButton::Flipped, this, &ToviNamePlate::LabelFlipped);
    }
    SetActive(false);
    SetSelected(false);
}

void ToviNamePlate::SetActive(bool isActive)
{
    active = isActive;
    for (ToviLabelButton* button : buttons) {
        // Else Qt would look for another window to take it, in any cell.
        if (!active && button->hasFocus()) setFocus();
        button->setVisible(active);
    }
}

void ToviNamePlate::SetSelected(bool isSelected)
{
    selected = isSelected;
    for (GaluMultiStatusButton* mark : {photoButton, checkButton}) {
        mark->SetBackColor(selected ? selectedColor : plainColor);
    }
    update();
}

void ToviNamePlate::SetTitle(const CString& text)
{
    title = text;
    setAccessibleName(QtText(title));
    setToolTip(ToolTipText(title));
    update();
}

void ToviNamePlate::SetHasDrawings(bool hasDrawings)
{
    photoButton->SetStatus(hasDrawings ? 1 : 0);
}

void ToviNamePlate::SetEditCheckResult(ToviPhoto::EditJPEGCheckResult result)
{
    const bool isKnown =
        result == ToviPhoto::EditCheckUnaltered || result == ToviPhoto::EditCheckAltered;
    checkButton->SetStatus(isKnown ? result : 0);
}

void ToviNamePlate::SetLabelNames(const ToviLabelManager& names)
{
    for (unsigned int label = 0; label < labelCount; ++label) {
        buttons[label]->SetLabelName(LabelCaption(names, label));
    }
}

void ToviNamePlate::ShowLabels(const ToviPhoto& photo)
{
    for (unsigned int label = 0; label < labelCount; ++label) {
        buttons[label]->SetPressed(photo.IsLabelPasted(label));
    }
    const CString& comment = photo.GetComment();
    const QString tip =
        WithKey(QtText(comment.empty() ? "コメント未記入" : comment), FrameCommand::LabelComment);
    buttons[LabelComment]->setToolTip(ToolTipText(FromQtText(tip)));
}

/// A disabled button keeps clicks to itself; those on a mark are meant for the plate.
bool ToviNamePlate::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        mousePressEvent(static_cast<QMouseEvent*>(event));
    } else if (event->type() == QEvent::MouseButtonDblClick) {
        mouseDoubleClickEvent(static_cast<QMouseEvent*>(event));
    }
    return false;
}

void ToviNamePlate::paintEvent(QPaintEvent*)
{
    const QColor text = selected ? Qt::white : Qt::black;
    QPainter painter(this);
    painter.fillRect(rect(), selected ? selectedColor : plainColor);
    painter.setPen(selectedColor);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(text);
    const int room = titleWidth - 2 * textGap;
    const QString shown =
        painter.fontMetrics().elidedText(QLatin1Char(' ') + QtText(title), Qt::ElideRight, room);
    painter.drawText(QRect(textGap, 0, room, height()),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
    if (!hasFocus()) return;
    painter.setPen(QPen(text, 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

void ToviNamePlate::resizeEvent(QResizeEvent*)
{
    LayOut();
}

void ToviNamePlate::mousePressEvent(QMouseEvent* event)
{
    if (!active) return;
    if (event->button() == Qt::LeftButton) emit Clicked();
    if (event->button() == Qt::RightButton) emit RightClicked();
}

void ToviNamePlate::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) emit DoubleClicked();
}

void ToviNamePlate::contextMenuEvent(QContextMenuEvent* event)
{
    if (active && event->reason() == QContextMenuEvent::Keyboard) emit RightClicked();
}

void ToviNamePlate::keyPressEvent(QKeyEvent* event)
{
    emit KeyPressed(event->key());
}

void ToviNamePlate::LayOut()
{
    const PlateLayout layout = LayOutPlate(width(), height(), photoButton->iconSize().height());
    photoButton->setGeometry(AsRect(layout.photoMark));
    checkButton->setGeometry(AsRect(layout.checkMark));
    for (unsigned int label = 0; label < labelCount; ++label) {
        buttons[label]->setGeometry(AsRect(layout.buttons[label]));
    }
    titleWidth = layout.titleWidth;
}
