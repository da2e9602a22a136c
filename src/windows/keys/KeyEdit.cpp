#include "windows/keys/KeyEdit.h"

#include "windows/keys/KeySet.h"

#include <QKeyEvent>

#include <algorithm>

namespace
{
bool IsForDialog(int key)
{
    constexpr int keys[] = {Qt::Key_Tab,      Qt::Key_Backtab,
                            Qt::Key_Return,   Qt::Key_Enter,
                            Qt::Key_Escape,   Qt::Key_Shift,
                            Qt::Key_Control,  Qt::Key_Alt,
                            Qt::Key_Meta,     Qt::Key_AltGr,
                            Qt::Key_CapsLock, Qt::Key_NumLock,
                            Qt::Key_unknown,  0};
    return std::ranges::find(keys, key) != std::end(keys);
}

/// The key as a shortcut knows it. Shift that has made the character, as in "?", is no part of it.
QKeySequence KeyOf(const QKeyEvent& pressed)
{
    Qt::KeyboardModifiers held = pressed.modifiers();
    held &= Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier;
    const QString text = pressed.text();
    const bool isMark =
        text.size() == 1 && text[0].isPrint() && !text[0].isSpace() && !text[0].isLetterOrNumber();
    if (isMark) held &= ~Qt::KeyboardModifiers(Qt::ShiftModifier);
    return QKeySequence(held | static_cast<Qt::Key>(pressed.key()));
}
} // namespace

KeyEdit::KeyEdit()
{
    setReadOnly(true);
    setPlaceholderText(QStringLiteral("ここで新しいキーを押す"));
    setAccessibleName(QStringLiteral("新しいキー"));
    setMinimumWidth(fontMetrics().horizontalAdvance(placeholderText() + QStringLiteral("　")));
}

void KeyEdit::Clear()
{
    key = {};
    clear();
}

bool KeyEdit::event(QEvent* event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey) return QLineEdit::event(event);
    const auto& pressed = *static_cast<QKeyEvent*>(event);
    if (IsForDialog(pressed.key())) return QWidget::event(event);
    event->accept();
    if (event->type() == QEvent::ShortcutOverride) return true;
    key = KeyOf(pressed);
    setText(KeyText(key));
    emit KeyTaken();
    return true;
}
