#include "windows/setup/KeyChangeDlg.h"

#include "windows/setup/SetUpKeyPage.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

KeyChangeDlg::KeyChangeDlg(QWidget* parent) : WenDialog(parent), page(new SetUpKeyPage)
{
    setWindowTitle(QStringLiteral("キーの変更"));
    auto* const column = new QVBoxLayout(this);
    column->addWidget(page, 1);
    column->addWidget(MakeOkCancel());
}

void KeyChangeDlg::OnOK()
{
    page->Take();
    WenDialog::OnOK();
}
