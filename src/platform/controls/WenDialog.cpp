#include "platform/controls/WenDialog.h"

#include "platform/controls/GaluFont.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>

WenDialog::WenDialog(QWidget* parent) : QDialog(parent)
{
    setFont(GaluFont::MsPGothic9pt());
}

bool WenDialog::DoModal()
{
    return exec() == Accepted;
}

void WenDialog::setVisible(bool visible)
{
    if (visible && !initialised) {
        initialised = true;
        OnInitDialog();
        if (!testAttribute(Qt::WA_Resized)) adjustSize();
        resize(size().boundedTo(screen()->availableSize()));
    }
    QDialog::setVisible(visible);
}

void WenDialog::accept()
{
    OnOK();
}

void WenDialog::reject()
{
    OnCancel();
}

void WenDialog::OnInitDialog() {}

void WenDialog::OnOK()
{
    QDialog::accept();
}

void WenDialog::OnCancel()
{
    QDialog::reject();
}

QDialogButtonBox* WenDialog::MakeOkCancel()
{
    auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    box->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    box->button(QDialogButtonBox::Ok)->setDefault(true);
    box->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("キャンセル"));
    connect(box, &QDialogButtonBox::accepted, this, &WenDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &WenDialog::reject);
    return box;
}

void WenDialog::keyPressEvent(QKeyEvent* event)
{
    if (isWindow()) {
        QDialog::keyPressEvent(event);
    } else {
        event->ignore();
    }
}
