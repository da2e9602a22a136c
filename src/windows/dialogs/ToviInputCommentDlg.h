#pragma once

#include "platform/controls/WenDialog.h"
#include "platform/text/Text.h"

class QPlainTextEdit;

/// Takes a comment on a photograph (コメントの記入). Enter is OK here, too.
class TOVI_EXPORT ToviInputCommentDlg : public WenDialog
{
    Q_OBJECT

public:
    explicit ToviInputCommentDlg(QWidget* parent);

    /// To be called before the dialog is shown.
    void SetComment(const CString& text) { comment = text; }
    /// The comment as it was set or, after OK, entered: empty when it was nothing but half-width
    /// blanks.
    const CString& GetComment() const { return comment; }

protected:
    void OnInitDialog() override;
    void OnOK() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CString comment;
    QPlainTextEdit* edit;
};
