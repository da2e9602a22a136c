#include "windows/dialogs/ToviInputCommentDlg.h"

#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"
#include "windows/dialogs/CommentEdit.h"
#include "windows/dialogs/PlaceBeside.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

static constexpr int idEdit = 1037;

ToviInputCommentDlg::ToviInputCommentDlg(QWidget* parent)
    : WenDialog(parent), subject(new QLabel(this)), edit(new CommentEdit(this))
{
    setWindowTitle(QStringLiteral("コメントの記入"));
    auto* const hint = new QLabel(
        QStringLiteral(
            "写真に対してコメントをしたい場合は、以下に記入してください。\n"
            "また、コメントを削除したい場合は、以下を空欄にしOKボタンを押してください。\n"
            "\n"
            "長すぎるコメントは、全てを表示・印刷することはできません。"),
        this);
    hint->setWordWrap(true);
    subject->setTextFormat(Qt::PlainText);
    subject->setWordWrap(true);
    subject->hide();
    SetWindowId(edit, idEdit);
    edit->setMinimumHeight(edit->fontMetrics().lineSpacing() * 5);
    connect(edit, &CommentEdit::Ended, this, &ToviInputCommentDlg::accept);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(subject);
    layout->addWidget(hint);
    layout->addWidget(edit, 1);
    layout->addWidget(MakeOkCancel());
    setMinimumWidth(460);
}

void ToviInputCommentDlg::SetSubject(const QString& words, const QRect& place)
{
    subject->setText(QStringLiteral("写真：%1").arg(words));
    subject->show();
    seen = place;
}

void ToviInputCommentDlg::OnInitDialog()
{
    if (!seen.isEmpty()) {
        adjustSize();
        move(PlaceBeside(seen, frameGeometry().size(), screen()->availableGeometry()));
    }
    edit->setPlainText(QtText(comment));
    edit->moveCursor(QTextCursor::End);
    edit->setFocus();
}

void ToviInputCommentDlg::OnOK()
{
    const CString text = FromQtText(edit->toPlainText());
    comment = ReplaceAll(text, " ", "").empty() ? CString() : text;
    WenDialog::OnOK();
}
