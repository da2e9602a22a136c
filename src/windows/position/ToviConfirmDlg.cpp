#include "windows/position/ToviConfirmDlg.h"

#include "delivery/ToviData.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "windows/position/DialogPlace.h"
#include "windows/trees/TreePanelRules.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

ToviConfirmDlg::ToviConfirmDlg(QWidget* owner)
    : WenDialog(owner), tree(new ToviConfirmTreeCtrl(this)), treeType(noTreeType)
{
    setWindowTitle(QStringLiteral("写真格納位置の確認"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setMinimumSize(smallestPositionWindow);

    auto* const button = new QPushButton(QStringLiteral("閉じる"));
    button->setDefault(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QStringLiteral("閉じる（Ctrl+W）"));
    connect(button, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(tree, 1);
    layout->addWidget(button, 0, Qt::AlignRight);
}

void ToviConfirmDlg::BuildTree(ToviData& document)
{
    tree->Show(PositionTree(document), treeType);
    OnSelect(document, document.GetPhoto(document.GetSelectCurIndex()));
}

bool ToviConfirmDlg::OnSelect(ToviData& document, const ToviPhoto* photo)
{
    if (photo == nullptr) {
        tree->Mark(PositionTree::none);
        return false;
    }
    const auto path = PositionPath(*document.GetItemDef(), *photo, treeType);
    const int row = path ? tree->Tree().Find(*path) : PositionTree::none;
    if (row == PositionTree::none) return false;
    tree->Mark(row);
    return true;
}

void ToviConfirmDlg::closeEvent(QCloseEvent* event)
{
    emit Closed(QRect(pos(), size()));
    event->accept();
}

/// No key of an answer does anything: there is nothing to answer.
void ToviConfirmDlg::keyPressEvent(QKeyEvent* event)
{
    event->accept();
}
