#pragma once

#include "platform/controls/WenDialog.h"
#include "platform/text/Text.h"

#include <QRect>

class CommentEdit;
class QLabel;

/// Takes a comment on a photograph (コメントの記入). Enter is OK here, too.
class TOVI_EXPORT ToviInputCommentDlg : public WenDialog
{
    Q_OBJECT

public:
    explicit ToviInputCommentDlg(QWidget* parent);

    /// To be called before the dialog is shown.
    void SetComment(const CString& text) { comment = text; }
    /// Likewise: the dialog is about \p words, and keeps off \p place on the screen, where it is.
    void SetSubject(const QString& words, const QRect& place);
    /// The comment as it was set or, after OK, entered: empty when it was nothing but half-width
    /// blanks.
    const CString& GetComment() const { return comment; }

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    QLabel* subject;
    QRect seen;
    CString comment;
    CommentEdit* edit;
};
