#include "windows/setup/SetUpLabelPage.h"

#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "review/LabelCaption.h"
#include "windows/pictures/Pictures.h"
#include "windows/setup/ToviColorButton.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace
{
constexpr int firstPicture = 809;

struct Place
{
    int buttonId;
    int editId;
    bool isFixed;
};

/// By slot.
constexpr Place places[labelCount] = {{1058, 1063, true},  {1059, 1064, false},
                                      {1060, 1065, false}, {1061, 1066, false},
                                      {1062, 1067, true},  {1068, 1083, false}};
} // namespace

SetUpLabelPage::SetUpLabelPage() : buttons(), names()
{
    auto* const box = new QGroupBox(QStringLiteral("付箋名称"));
    auto* const column = new QVBoxLayout(box);
    auto* const checks = new QGroupBox(QStringLiteral("写真チェック用　付箋内容"));
    auto* const checkGrid = new QGridLayout(checks);
    for (unsigned int slot = LabelOk; slot <= LabelComment; ++slot) AddLabel(checkGrid, slot);
    auto* const free = new QGroupBox(QStringLiteral("任意項目"));
    AddLabel(new QGridLayout(free), LabelFree);
    column->addWidget(checks);
    column->addWidget(free);
    auto* const page = new QVBoxLayout(this);
    page->addWidget(box);
    page->addStretch(1);
}

void SetUpLabelPage::AddLabel(QGridLayout* grid, unsigned int slot)
{
    const Place& place = places[slot];
    const QString title = QString::fromUtf8(LabelBadge(slot));
    buttons[slot] =
        new ToviColorButton(PictureIcon(PicturesOf(firstPicture + static_cast<int>(slot))[0]));
    SetWindowId(buttons[slot], place.buttonId);
    names[slot] = new QLineEdit;
    SetWindowId(names[slot], place.editId);
    names[slot]->setAccessibleName(title + QStringLiteral("の名称"));
    names[slot]->setReadOnly(place.isFixed);
    if (place.isFixed) {
        // It looks as fixed as it is.
        QPalette flat = names[slot]->palette();
        flat.setColor(QPalette::Base, flat.color(QPalette::Window));
        names[slot]->setPalette(flat);
    }
    const int row = grid->rowCount();
    grid->addWidget(buttons[slot], row, 0);
    auto* const label = new QLabel(title);
    label->setMinimumWidth(
        fontMetrics().horizontalAdvance(QString::fromUtf8(LabelBadge(LabelComment))));
    grid->addWidget(label, row, 1);
    grid->addWidget(names[slot], row, 2);
}

void SetUpLabelPage::Show(const ToviLabelManager& labels)
{
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        const ToviLabelAttribute& label = labels.GetLabelAttribute(slot);
        names[slot]->setText(QtText(label.GetName()));
        names[slot]->setCursorPosition(0);
        buttons[slot]->SetColor(label.GetColor());
    }
}

LabelNames SetUpLabelPage::GetNames() const
{
    LabelNames all;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        all[slot] = FromQtText(names[slot]->text());
    }
    return all;
}

void SetUpLabelPage::FocusName(unsigned int slot)
{
    names[slot]->setFocus();
    names[slot]->selectAll();
}
