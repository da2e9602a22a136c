#include "windows/dialogs/CommentEdit.h"

#include <QKeyEvent>

#include <chrono>

using namespace std::chrono_literals;

/// Some input methods let the Enter through with which they have ended a conversion. Nobody presses
/// the key twice in this time.
static constexpr auto sameEnter = 60ms;

CommentEdit::CommentEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setAccessibleName(QStringLiteral("コメント"));
    viewport()->setAcceptDrops(false);
}

void CommentEdit::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || event->modifiers() & Qt::ShiftModifier) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    const bool endsConversion = isConverting || (sinceConversion.isValid() &&
                                                 sinceConversion.elapsed() < sameEnter.count());
    if (!endsConversion) emit Ended();
}

void CommentEdit::inputMethodEvent(QInputMethodEvent* event)
{
    const bool wasConverting = isConverting;
    isConverting = !event->preeditString().isEmpty();
    if (wasConverting && !isConverting) sinceConversion.start();
    QPlainTextEdit::inputMethodEvent(event);
}
