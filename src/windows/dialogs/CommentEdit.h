#pragma once

#include "platform/text/Export.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>

/// A field for a comment. Enter ends it, with Shift it makes a line, which reports print. An Enter
/// that ends the conversion of an input method does neither.
class TOVI_EXPORT CommentEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CommentEdit(QWidget* parent = nullptr);

signals:
    void Ended();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    /// The user has the input method convert what he types.
    bool isConverting = false;
    QElapsedTimer sinceConversion;
};
