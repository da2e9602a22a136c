#include "windows/extraction/SearchField.h"

#include <QKeyEvent>

SearchField::SearchField()
{
    constexpr int usualCharacters = 24;
    setPlaceholderText(QStringLiteral("項目・コメント・ファイル名を検索"));
    setAccessibleName(QStringLiteral("検索する文字"));
    setToolTip(QStringLiteral(
        "空白で区切ると、すべての語を含む写真を探します。全角と半角、カナとかな、大文字と小文字は"
        "区別しません。"));
    setClearButtonEnabled(true);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("あ")) * usualCharacters);
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        emit EndRequested();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        emit PhotosRequested();
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}
