#include "windows/dialogs/ToviInputCommentDlg.h"

#include "platform/controls/WindowId.h"
#include "platform/text/QtText.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

static constexpr int idEdit = 1037;

ToviInputCommentDlg::ToviInputCommentDlg(QWidget* parent)
    : WenDialog(parent), edit(new QPlainTextEdit(this))
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
    SetWindowId(edit, idEdit);
    edit->setTabChangesFocus(true);
    edit->setAccessibleName(QStringLiteral("コメント"));
    edit->setMinimumHeight(edit->fontMetrics().lineSpacing() * 5);
    edit->viewport()->setAcceptDrops(false);
    edit->installEventFilter(this);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(edit, 1);
    layout->addWidget(MakeOkCancel());
    setMinimumWidth(460);
}

void ToviInputCommentDlg::OnInitDialog()
{
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

bool ToviInputCommentDlg::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == edit && event->type() == QEvent::KeyPress) {
        const auto& pressed = *static_cast<QKeyEvent*>(event);
        const bool isEnter = pressed.key() == Qt::Key_Return || pressed.key() == Qt::Key_Enter;
        // With Shift it makes a line, which reports print.
        if (isEnter && !(pressed.modifiers() & Qt::ShiftModifier)) {
            accept();
            return true;
        }
    }
    return WenDialog::eventFilter(watched, event);
}
