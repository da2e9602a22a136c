#pragma once

#include "platform/text/Text.h"

#include <QWidget>

class CommentEdit;
class QGridLayout;
class QLabel;

/// The strip under the photographs in which a comment is written: a field, and the texts used
/// before, which Alt and a digit take.
class TOVI_EXPORT CommentEntry : public QWidget
{
    Q_OBJECT

public:
    CommentEntry();

    /// Lets the user write the comment of \p subject, which is \p comment now.
    void Begin(const QString& subject, const CString& comment);
    /// The keyboard writes in the strip from now on.
    void TakeFocus();
    /// Hides the strip. What isn't written yet is told by Written before.
    void Finish();
    /// The user has changed the comment since Begin.
    bool IsChanged() const;

signals:
    /// The comment is to be \p text.
    void Written(const CString& text);
    /// The strip has gone by the user's hand.
    void Left();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddTextKeys();
    void ShowTexts();
    void TakeText(int place);
    void Accept();
    void GiveUp();
    CString Text() const;

    QLabel* subject;
    CommentEdit* edit;
    QWidget* texts;
    CString before;
};
